#include "tests/finance/janelacaixa.h"

#include "core/modos.h"
#include "finance/finance.h"
#include "reports/reports.h"
#include "workorders/workorders.h"

using namespace Qt::StringLiterals;

namespace caixa
{

const QString null = u"<Null>"_s;

void Case::prepare()
{
    finance::registerForms();
    reports::registerForms();
    workorders::registerForms();
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    boxes_->title(u"Tarvelo"_s);
}

void Case::finish()
{
    boxes_.reset();
    program_.reset();
    window_ = nullptr;
}

ui::Form *Case::open(qint16 mode)
{
    window_ = cadastro::open(u"frmMoviCaixa"_s, mode);
    return window_;
}

qint32 Case::row(const QString &date, const QString &text, const QString &in, const QString &out,
                 const QString &balance, const QString &order, const QString &table)
{
    program_->sql(
        u"INSERT INTO %1 (Data, Descricao, Entrada, Saida, Saldo, CodOs) VALUES (#%2#, '%3', %4, %5, %6, %7)"_s.arg(
            table, date, text, in, out, balance, order));
    return std::get<qint32>(program_->value(u"SELECT Max(Codigo) FROM "_s + table));
}

void Case::fill(const QString &option, const QString &date, const QString &text, const QString &amount)
{
    support::type(window_, u"txtData"_s, date);
    support::type(window_, u"txtDescricao"_s, text);
    support::click(window_, option);
    support::type(window_, u"txtValor"_s, amount);
}

void Case::add(const QString &option, const QString &date, const QString &text, const QString &amount)
{
    fill(option, date, text, amount);
    support::click(window_, u"btnIncluir"_s);
}

void Case::showAll()
{
    support::type(window_, u"txtDataInicio"_s, u"01012020"_s);
    support::type(window_, u"txtDataFim"_s, u"31122030"_s);
    support::click(window_, u"btnPreenche"_s);
}

Rows Case::ledger(const QString &table) const
{
    return program_->rows(u"SELECT Codigo, Entrada, Saida, Saldo FROM %1 ORDER BY Data, Codigo"_s.arg(table));
}

} // namespace caixa
