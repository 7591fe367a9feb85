#include "tests/workorders/consulta.h"

#include "support/modal.h"

#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "reports/reports.h"
#include "workorders/abertura.h"
#include "workorders/fechamento.h"
#include "workorders/workorders.h"

#include <QDir>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;

namespace consulta
{

const QString query = u"frmOSConsulta"_s;
const QString payment = u"frmOSFormaPagto"_s;

namespace
{

class Stand : public ui::Form
{
public:
    Stand(const QString &name, const QString &field) : ui::Form(name)
    {
        auto *edit = new QLineEdit(this);
        edit->setObjectName(field);
        resize(300, 100);
    }
};

} // namespace

void pretend(const QString &form, const QString &field)
{
    ui::Forms::instance().add(form, [form, field] { return new Stand(form, field); });
}

QStringList codes(const ui::ListView &list)
{
    QStringList found;
    for (int row = 0; row < list.count(); ++row) {
        found << list.item(row).text();
    }
    return found;
}

QStringList rowsOf(const ui::ListView &list)
{
    QStringList found;
    for (int row = 0; row < list.count(); ++row) {
        QStringList cells;
        for (int column = 0; column < list.columnCount(); ++column) {
            cells << list.item(row).subItem(column);
        }
        found << cells.join(u'|');
    }
    return found;
}

LinhaItem line(const QString &code, const QString &psa, const QString &quantity, const QString &name,
               const QString &price)
{
    return {code, psa, quantity, name, price, {}};
}

void Case::prepare()
{
    workorders::registerForms();
    reports::registerForms();
    start();
}

void Case::start()
{
    program_ = std::make_unique<support::Program>();
    customer_ = program_->customer(u"MARIA DA SILVA"_s);
    vehicle_ = program_->vehicle(customer_, u"ABC1D23"_s);
    program_->sql(u"UPDATE Veiculos SET Ano = '2019/2020', Chassi = '9BWZZZ377VT004251'"_s);
    first_ = newOrder({line(u"0000"_s, u"A"_s, u"01"_s, u"REVISÃO"_s, u"100,00"_s)});
}

void Case::finish()
{
    support::failNotShown();
    program_.reset();
    window_ = nullptr;
}

QString Case::newOrder(const std::vector<LinhaItem> &items, qint32 vehicle)
{
    NovaOrdem order;
    order.codCliente = QString::number(customer_);
    order.codVeiculo = QString::number(vehicle == 0 ? vehicle_ : vehicle);
    order.km = u"45200"_s;
    order.observacao = u"BARULHO NA RODA"_s;
    order.valor = u"1.234,50"_s;
    order.servicos = u"TROCA DE ROLAMENTO"_s;
    order.mecanico = u"PEDRO"_s;
    order.itens = items;
    return runtime::Format(AbreOrdem(order), u"0000");
}

void Case::closeOrder(const QString &code)
{
    Fechamento closing;
    closing.codigo = code;
    closing.codCliente = u"1"_s;
    closing.total = u"100,00"_s;
    FechaOrdem(closing);
}

ui::Form *Case::open(qint16 mode)
{
    core::ModoChamada = mode;
    window_ = support::show(query);
    return window_;
}

void Case::show(const QString &code)
{
    auto *view = list();
    const int row = int(codes(*view).indexOf(code));
    QVERIFY2(row >= 0, qPrintable(code));
    view->ensureVisible(row);
    const QPoint place = view->visualRect(view->model()->index(row, 1)).center();
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, view->viewport()->mapTo(window_, place));
    QCOMPARE(support::text(window_, u"lblCodigo"_s), code);
}

int Case::documents() const
{
    return int(QDir(program_->path(u"impressos"_s)).entryList({u"*.pdf"_s}).size());
}

ui::ListView *Case::list(const QString &name) const
{
    return support::control<ui::ListView>(window_, name);
}

} // namespace consulta
