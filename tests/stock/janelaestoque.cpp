#include "tests/stock/janelaestoque.h"

#include "registers/registers.h"
#include "stock/stock.h"
#include "workorders/workorders.h"

using namespace Qt::StringLiterals;

namespace estoque
{

const QString null = u"<Null>"_s;

void Case::prepare()
{
    stock::registerForms();
    registers::registerForms();
    workorders::registerForms();
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    part_ = program_->part(u"FILTRO DE ÓLEO"_s, u"P"_s, u"25,00"_s, true);
}

void Case::finish()
{
    boxes_.reset();
    program_.reset();
    window_ = nullptr;
}

ui::Form *Case::open(qint16 mode, qint32 part)
{
    core::CodigoConsulta = part;
    window_ = cadastro::open(u"frmMoviEstoque"_s, mode);
    return window_;
}

void Case::choose(const QString &code)
{
    support::type(window_, u"txtCodPeca"_s, code);
}

void Case::fill(const QString &option, const QString &date, const QString &text, const QString &quantity)
{
    support::type(window_, u"txtData"_s, date);
    support::type(window_, u"txtDescricao"_s, text);
    support::click(window_, option);
    support::type(window_, u"txtValor"_s, quantity);
}

void Case::post(const QString &option, const QString &quantity)
{
    fill(option, u"15/05/2024"_s, u"AJUSTE"_s, quantity);
    boxes_->question(u"Confirma Inclusão"_s, true);
    support::click(window_, u"btnIncluir"_s);
}

void Case::row(const QString &date, const QString &text, const QString &in, const QString &out, const QString &balance,
               qint32 part)
{
    program_->sql(u"INSERT INTO Estoque (CodPeca, Data, Descricao, Entrada, Saida, Estoque) VALUES (%1, #%2#, '%3', "
                  "%4, %5, %6)"_s.arg(QString::number(part), date, text, in, out, balance));
}

Rows Case::ledger() const
{
    return program_->rows(u"SELECT Descricao, Entrada, Saida, Estoque FROM Estoque ORDER BY Codigo"_s);
}

Rows Case::posted() const
{
    Rows rows = ledger();
    rows.erase(rows.begin());
    return rows;
}

bool Case::hasFocus(const QString &name) const
{
    return support::controlOf(window_, name)->hasFocus();
}

QStringList Case::shown() const
{
    QStringList rows;
    for (const QStringList &cells : cadastro::rowsOf(window_)) {
        rows << cells.join(u'|');
    }
    return rows;
}

} // namespace estoque
