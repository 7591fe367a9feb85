#include "tools/demonstracao/pagamento.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/modal.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"

#include <QPointer>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

void expectBoxes(Boxes &boxes, const QString &code, const Pagamento &payment)
{
    static const QStringList captions = {
        u"Fechar O.S. com Pagamento À Vista"_s,  u"Fechar O.S. com Pagto. Cheque Pré"_s,
        u"Fechar O.S. com Pagto. Parc. Carnê"_s, u"Fechar O.S. com Pagto. Parc. Cheque"_s,
        u"Fechar O.S. com Pagto. Outros"_s,      u"Fechar O.S. com Pagto Personalizado"_s};
    boxes.question(captions[payment.tab], true);
    for (int number = 0; number < payment.chequeNumbers.size(); ++number) {
        boxes.input(u"Digite o Número do Cheque da 0%1ª Parcela"_s.arg(number + 1), payment.chequeNumbers[number]);
    }
    boxes.question(u"Imprime Ordem de Serviço Nº "_s + code, payment.print);
    if (payment.print) {
        boxes.question(u"Imprimir Outra Via ?"_s, false);
    }
}

void pay(Boxes &boxes, const QString &code, const Pagamento &payment)
{
    auto *window = form(u"frmOSFormaPagto"_s);
    support::control<QTabWidget>(window, u"tabPagto"_s)->setCurrentIndex(payment.tab);
    payment.fill(window);
    const QString name = payment.picture.isEmpty() ? QString::number(payment.tab) : payment.picture;
    picture(u"frmOSFormaPagto_"_s + name, window);
    expectBoxes(boxes, code, payment);
    const QPointer<ui::Form> open = window;
    click(window, u"btnFechar_%1"_s.arg(payment.tab));
    if (open && !open->unloading()) {
        open->Unload(); // a refused payment would wait for ever
        QTest::qFail("o pagamento não foi aceito", __FILE__, __LINE__);
    }
}

} // namespace

void addItem(const QString &quantity, const QString &description, const QString &value, const QString &name)
{
    auto *window = form(name);
    type(window, u"txtQuantidade"_s, quantity);
    type(window, u"txtDescricao"_s, description);
    type(window, u"txtValor"_s, value);
    click(window, u"btnItemAdd"_s);
}

QString includeOrder(Boxes &boxes)
{
    confirmed(form(u"frmOSAbre"_s), boxes, u"btnIncluir"_s, u"Confirma Inclusão"_s);
    auto order = core::DBDados->OpenRecordset(u"SELECT * FROM OrdemServico ORDER BY Codigo"_s);
    order.MoveLast();
    return runtime::Format(order.value(u"Codigo"), u"0000");
}

QString openOrder(Boxes &boxes, const QString &vehicle)
{
    auto *window = choose(u"itmOSAbrir"_s, u"frmOSAbre"_s);
    type(window, u"txtCodVeiculo"_s, vehicle);
    addItem(u"1"_s, u"revisão"_s, u"300"_s);
    addItem(u"4"_s, u"vela de ignição"_s, u"25"_s);
    return includeOrder(boxes);
}

void showOrder(const QString &code)
{
    auto *window = form(u"frmOSConsulta"_s);
    auto *list = support::control<ui::ListView>(window, u"Lista"_s);
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row).text() == code) {
            list->selectRow(row);
        }
    }
    support::key(window, u"Lista"_s, Qt::Key_Home);
    support::key(window, u"Lista"_s, Qt::Key_End);
    QCOMPARE(support::text(window, u"lblCodigo"_s), code);
}

void closeOrder(Boxes &boxes, const QString &code, const Pagamento &payment)
{
    auto *window = choose(u"itmOSFecha"_s, u"frmOSConsulta"_s);
    showOrder(code);
    if (payment.tab == 0) {
        picture(u"frmOSConsulta"_s);
    }
    support::whenShown(u"frmOSFormaPagto"_s, [&] { pay(boxes, code, payment); });
    click(window, u"btnFechar"_s);
    support::failNotShown();
    boxes.finish();
    QCOMPARE(value(u"SELECT EmAberto FROM OrdemServico WHERE Codigo = "_s + code), runtime::Value(false));
}

} // namespace demonstracao
