#pragma once

#include "documents/itens.h"

namespace workorders
{

/// What the price of a job is worked out from, texts as they stand in the fields.
struct DadosDoCalculo {
    QString valorHora;
    QString horas;
    QString custoPecas; ///< what is no number: the parts of the order by their cost
    QString despesas;   ///< this and the others in per cent
    QString lucro;
    QString iss;
    QString simples;
};

/// The steps of the calculation, as "###,##0.00".
struct Calculo {
    QString totalMO;
    QString custoPecas;
    QString despesas;
    QString lucro;
    QString iss;
    QString simples;
    QString custoTotal;
};

/// Whether a text is a rate that can be taken of a value; one below zero has no digits to act by.
bool ServeDeTaxa(const QString &texto);

/// Works the price of a job out. Each percentage is taken on the running total; every step is a text again, its sums in
/// single precision, its products in double. The rates, the hours and their value have to be numbers.
Calculo Calcula(const DadosDoCalculo &dados, const std::vector<documents::LinhaItem> &lista);

} // namespace workorders
