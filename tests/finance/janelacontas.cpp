#include "tests/finance/janelacontas.h"

#include "finance/finance.h"
#include "workorders/workorders.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace contas
{

const QString null = u"<Null>"_s;
const QString receivables = u"ContasReceber"_s;
const QString payables = u"ContasPagar"_s;

void Case::prepare()
{
    finance::registerForms();
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

ui::Form *Case::open(int tab)
{
    window_ = cadastro::open(u"frmMoviContasPR"_s);
    front(tab);
    return window_;
}

void Case::front(int tab)
{
    tab_ = tab;
    support::control<QTabWidget>(window_, u"tabContas"_s)->setCurrentIndex(tab);
    QCoreApplication::processEvents();
}

qint32 Case::account(const QString &table, const QString &text, const QString &value, const QString &due)
{
    program_->sql(u"INSERT INTO %1 (Data, Descricao, Valor, Vencimento, Pago) VALUES (#05/10/2024#, '%2', %3, #%4#, "
                  "False)"_s.arg(table, text, value, due));
    return std::get<qint32>(program_->value(u"SELECT Max(Codigo) FROM "_s + table));
}

qint32 Case::settled(const QString &table, const QString &text, const QString &value)
{
    const qint32 code = account(table, text, value);
    program_->sql(u"UPDATE %1 SET Pago = True, DataPagto = #05/12/2024# WHERE Codigo = %2"_s.arg(table).arg(code));
    return code;
}

qint32 Case::order(const QString &customer)
{
    const qint32 code = program_->customer(customer);
    program_->sql(u"INSERT INTO OrdemServico (CodCliente) VALUES (%1)"_s.arg(code));
    return std::get<qint32>(program_->value(u"SELECT Max(Codigo) FROM OrdemServico"_s));
}

void Case::fill(const QString &date, const QString &text, const QString &value, const QString &due)
{
    cadastro::fill(
        window_, {{u"txtData"_s, date}, {u"txtDescricao"_s, text}, {u"txtValor"_s, value}, {u"txtVencimento"_s, due}});
}

ui::ListView *Case::list() const
{
    return cadastro::list(window_, u"Lista_%1"_s.arg(tab_));
}

Rows Case::shown() const
{
    Rows all;
    for (int row = 0; row < list()->count(); ++row) {
        QStringList cells;
        for (int place = 0; place < list()->columnCount(); ++place) {
            cells << list()->item(row).subItem(place);
        }
        all.push_back(cells);
    }
    return all;
}

QStringList Case::column(int column) const
{
    QStringList texts;
    for (const QStringList &cells : shown()) {
        texts << cells.at(column);
    }
    return texts;
}

namespace
{

QPoint placeOf(ui::ListView *list, int row)
{
    list->ensureVisible(row);
    const QPoint place = list->visualRect(list->model()->index(row, 1)).center();
    return list->viewport()->mapTo(list->window(), place);
}

} // namespace

void Case::clickRow(int row) const
{
    QTest::mouseClick(window_->window()->windowHandle(), Qt::LeftButton, {}, placeOf(list(), row));
    QCOMPARE(list()->selectedRow(), row);
}

void Case::doubleClickRow(int row) const
{
    QTest::mouseDClick(window_->window()->windowHandle(), Qt::LeftButton, {}, placeOf(list(), row));
}

void Case::keyOn(int row, Qt::Key key) const
{
    clickRow(row);
    support::key(window_, list()->objectName(), key);
}

void Case::otherOperator()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    core::CodOperador = 2;
}

} // namespace contas
