#pragma once

#include "tools/amostra/oficina.h"
#include "tools/amostra/sorteio.h"
#include "workorders/ordem.h"

#include <unordered_map>

/// What a workshop's books go through between the orders: stock bought again, bills, payments that came in, the bank.
namespace amostra
{

class Acertos
{
public:
    Acertos(const Oficina &oficina, int ordens);

    /// Buys what this sale took below its minimum.
    void repoeEstoque(const std::vector<documents::LinhaItem> &itens);

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
    /// Told along with the sales: the ledger is asked only when a part is bought.
    struct Saldo {
        const Item *item = nullptr;
        double estoque = 0;
    };
    std::unordered_map<qint32, Saldo> comEstoque_;
};

} // namespace amostra
