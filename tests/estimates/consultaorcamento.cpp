#include "tests/estimates/consultaorcamento.h"

#include "estimates/estimates.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "reports/reports.h"
#include "workorders/workorders.h"

#include "core/modulo.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace estimates;

void EstimateQueryTest::registerWindows()
{
    workorders::registerForms();
    estimates::registerForms();
    reports::registerForms();
}

void EstimateQueryTest::prepare()
{
    program_ = std::make_unique<support::Program>();
    program_->part(u"FILTRO"_s, u"P"_s, u"30,25"_s);
    program_->part(u"REVISÃO"_s, u"S"_s, u"700,00"_s);
    program_->part(u"OLEO"_s, u"P"_s, u"20,00"_s, false, 2);
    IncluiOrcamento({.marca = u"GOL 1.0"_s,
                     .ano = u"2001/2002"_s,
                     .codCliente = u"7"_s,
                     .nome = u"MARIA DA SILVA"_s,
                     .fone = u"(11) 5555-0001"_s,
                     .observacoes = u"RETORNA SEXTA"_s,
                     .valor = u"1.180,85"_s,
                     .itens = {{u"0001"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"30,25"_s, {}},
                               {u"0002"_s, u"S"_s, u"1,5"_s, u"REVISÃO"_s, u"700,00"_s, {}},
                               {u"0000"_s, u"A"_s, u"01"_s, u"GRAXA"_s, u"0,35"_s, {}},
                               {u"0003"_s, u"P"_s, u"3,5"_s, u"OLEO"_s, u"20,00"_s, {}}}});
    IncluiOrcamento({.marca = u"FUSCA 1300"_s,
                     .nome = u"JOSÉ"_s,
                     .fone = u"(19) 3232-1010"_s,
                     .valor = u"10,00"_s,
                     .itens = {{u"0001"_s, u"P"_s, u"01"_s, u"FILTRO"_s, u"10,00"_s, {}}}});
    IncluiOrcamento({.marca = u"GOL 1.6"_s, .valor = u"0,00"_s});
}

void EstimateQueryTest::finish()
{
    program_.reset();
    window_ = nullptr;
}

void EstimateQueryTest::open(qint16 mode, const QString &layout)
{
    program_->config(u"LayoutOS"_s, layout);
    core::ModoChamada = mode;
    window_ = support::show(query);
}

void EstimateQueryTest::show(const QString &code) const
{
    auto *view = list();
    const int row = int(codes().indexOf(code));
    QVERIFY2(row >= 0, qPrintable(code));
    view->ensureVisible(row);
    const QPoint place = view->visualRect(view->model()->index(row, 1)).center();
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, view->viewport()->mapTo(window_, place));
    QCOMPARE(support::text(window_, u"lblCodigo"_s), code);
}

EstimateQueryTest::Rows EstimateQueryTest::rowsOf(ui::Form *form, const QString &list)
{
    const auto *view = support::control<ui::ListView>(form, list);
    Rows all;
    for (int row = 0; row < view->count(); ++row) {
        QStringList cells;
        for (int column = 0; column < view->columnCount(); ++column) {
            cells << view->item(row).subItem(column);
        }
        all.push_back(cells);
    }
    return all;
}

QStringList EstimateQueryTest::codes() const
{
    QStringList all;
    for (const QStringList &row : rows(u"Lista"_s)) {
        all << row.front();
    }
    return all;
}

ui::ListView *EstimateQueryTest::list() const
{
    return support::control<ui::ListView>(window_, u"Lista"_s);
}

int EstimateQueryTest::documents() const
{
    return int(QDir(program_->path(u"impressos"_s)).entryList({u"*.pdf"_s}).size());
}

ui::Form *EstimateQueryTest::found(const QString &form)
{
    return ui::Forms::instance().find(form);
}
