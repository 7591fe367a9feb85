#include "tests/workorders/janelapagto.h"

#include "support/modal.h"

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "workorders/abertura.h"
#include "workorders/workorders.h"

#include <QDir>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace pagto
{

const QString query = u"frmOSConsulta"_s;
const QString payment = u"frmOSFormaPagto"_s;
const QString today = u"15/05/2024"_s;
const QString printQuestion = u"Imprime Ordem de Serviço Nº 0001"_s;
const QStringList captions{u"Fechar O.S. com Pagamento À Vista"_s,  u"Fechar O.S. com Pagto. Cheque Pré"_s,
                           u"Fechar O.S. com Pagto. Parc. Carnê"_s, u"Fechar O.S. com Pagto. Parc. Cheque"_s,
                           u"Fechar O.S. com Pagto. Outros"_s,      u"Fechar O.S. com Pagto Personalizado"_s};

ui::Form *form()
{
    return ui::Forms::instance().find(payment);
}

QString shown(const QString &name)
{
    return support::text(form(), name);
}

void enter(const QString &name, const QString &what)
{
    support::type(form(), name, what);
}

void press(const QString &button)
{
    support::click(form(), button);
}

void goTo(int tab)
{
    support::control<QTabWidget>(form(), u"tabPagto"_s)->setCurrentIndex(tab);
}

ui::ListView *list(int index)
{
    return support::control<ui::ListView>(form(), u"Lista_%1"_s.arg(index));
}

QStringList rowsOf(int index)
{
    QStringList found;
    const auto *rows = list(index);
    for (int row = 0; row < rows->count(); ++row) {
        QStringList cells;
        for (int column = 0; column < rows->columnCount(); ++column) {
            cells << rows->item(row).subItem(column);
        }
        found << cells.join(u'|');
    }
    return found;
}

void Case::open()
{
    workorders::registerForms();
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    const qint32 customer = program_->customer(u"MARIA"_s, u"500,00"_s);
    workorders::NovaOrdem order;
    order.codCliente = QString::number(customer);
    order.codVeiculo = QString::number(program_->vehicle(customer, u"ABC1D23"_s));
    order.valor = u"100,00"_s;
    const QString part = QString::number(program_->part(u"FILTRO"_s, u"P"_s, u"50,00"_s, true));
    order.itens = {{part, u"P"_s, u"02"_s, u"FILTRO"_s, u"50,00"_s, {}}};
    workorders::AbreOrdem(order);
    core::ModoChamada = 9;
}

void Case::finish()
{
    boxes_->finish();
    support::failNotShown();
    boxes_.reset();
    program_.reset();
}

void Case::inPayment(const std::function<void()> &action)
{
    auto *window = support::show(query);
    support::key(window, u"Lista"_s, Qt::Key_Space);
    QCOMPARE(support::text(window, u"lblCodigo"_s), u"0001"_s);
    support::whenShown(payment, [&] {
        form()->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form()->window()));
        action();
        ui::Forms::instance().Unload(payment);
    });
    support::click(window, u"btnFechar"_s);
}

void Case::close(int tab, const std::function<void()> &fill, const std::function<void()> &asked)
{
    inPayment([&] {
        goTo(tab);
        fill();
        boxes_->question(captions.at(tab), true);
        asked();
        boxes_->question(printQuestion, false);
        press(u"btnFechar_%1"_s.arg(tab));
        QVERIFY(form() == nullptr);
        QVERIFY(ui::Forms::instance().find(query) == nullptr);
    });
}

void Case::refuse(int tab, const QString &message, const std::function<void()> &fill)
{
    inPayment([&] {
        goTo(tab);
        fill();
        boxes_->question(captions.at(tab), true).exclamation(message);
        press(u"btnFechar_%1"_s.arg(tab));
        QVERIFY(form() != nullptr);
        QVERIFY(nothingWritten());
    });
}

QStringList Case::table(const QString &name) const
{
    QStringList lines;
    for (const QStringList &row : program_->rows(u"SELECT * FROM "_s + name + u" ORDER BY Codigo"_s)) {
        lines << row.join(u'|').replace(u" 00:00:00"_s, QString());
    }
    return lines;
}

QString Case::order() const
{
    const auto rows = program_->rows(u"SELECT EmAberto, Pago, DataOut, DataPagto, FormaPagto FROM OrdemServico"_s);
    return rows.front().join(u'|');
}

bool Case::nothingWritten() const
{
    for (const QString &name : {u"Caixa"_s, u"Cheques"_s, u"ContasReceber"_s, u"Fiados"_s, u"ContaFiado"_s}) {
        if (!table(name).isEmpty()) {
            return false;
        }
    }
    return order() == u"True|False|<Null>|<Null>|<Null>" && table(u"Estoque"_s).size() == 1;
}

int Case::documents() const
{
    return int(QDir(program_->path(u"impressos"_s)).entryList({u"*.pdf"_s}).size());
}

} // namespace pagto
