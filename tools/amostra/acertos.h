#pragma once

#include "tools/amostra/oficina.h"
#include "tools/amostra/sorteio.h"

/// What a workshop's books go through between the orders: bills, payments that came in, the bank.
namespace amostra
{

class Acertos
{
public:
    Acertos(const Oficina &oficina, int ordens);

    /// The end of a week: bills and receivables that fell due, and the cash box brought to the bank.
    void daSemana();

private:
    void recebeContas();
    void recebeFiados();
    void lancaDespesas();

    Sorteio sorteio_;
    Sorteio deDespesas_;
    int ordensPorMes_;
    int semana_ = 0;
};

} // namespace amostra
