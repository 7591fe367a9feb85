#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/pagamento.h"

#include <QTest>

using namespace Qt::StringLiterals;
using runtime::Value;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

/// Leaves a field of the order by Tab, as after a pick.
void leave(const QString &field)
{
    support::key(form(u"frmOSAbre"_s), field, Qt::Key_Tab);
}

class Escolhas : public QObject
{
    Q_OBJECT

private slots:
    void veiculoPorF1();
    void veiculoComClientePorF2();
    void pecaPorF2EF1();
    void contaDeOutroClientePorF1();

private:
    QString order_; ///< the order that the picks have made
};

void Escolhas::veiculoPorF1()
{
    auto *order = choose(u"itmOSAbrir"_s, u"frmOSAbre"_s);
    for (const By by : {By::Enter, By::DoubleClick}) {
        support::key(order, u"txtCodVeiculo"_s, Qt::Key_F1);
        pick(u"frmCadaVeiculos"_s, u"silva"_s, by);
        leave(u"txtCodVeiculo"_s);
        QTRY_COMPARE(support::text(order, u"lblNome"_s), u"JOÃO DA SILVA"_s);
        click(order, u"btnCancelar"_s);
        QCOMPARE(support::text(order, u"lblNome"_s), QString());
    }
    done(u"veículo escolhido por F1, com Enter e com duplo clique"_s);
}

/// The customer goes back to the register of vehicles, which has been waiting.
void includeCustomer(Boxes &boxes)
{
    auto *window = form(u"frmCadaCliente"_s);
    cadastro::fill(window,
                   {{u"txtNome"_s, u"helena duarte"_s}, {u"txtCEP"_s, u"30130003"_s}, {u"txtNumero"_s, u"41"_s}});
    include(window, boxes);
    QTRY_VERIFY(!cadastro::isOpen(u"frmCadaCliente"_s));
    auto *vehicles = form(u"frmCadaVeiculos"_s);
    support::key(vehicles, u"txtCodCliente"_s, Qt::Key_Tab);
    QCOMPARE(support::text(vehicles, u"lblNomeCliente"_s), u"HELENA DUARTE"_s);
}

void includeVehicle(Boxes &boxes)
{
    auto *window = form(u"frmCadaVeiculos"_s);
    support::key(window, u"txtCodCliente"_s, Qt::Key_F2);
    includeCustomer(boxes);
    cadastro::fill(window,
                   {{u"cboMarca"_s, u"fiesta 1.6"_s}, {u"txtAno"_s, u"20122013"_s}, {u"txtPlaca"_s, u"hld2e34"_s}});
    include(window, boxes);
    QTRY_VERIFY(!cadastro::isOpen(u"frmCadaVeiculos"_s));
}

void Escolhas::veiculoComClientePorF2()
{
    Boxes boxes;
    auto *order = form(u"frmOSAbre"_s);
    support::key(order, u"txtCodVeiculo"_s, Qt::Key_F2);
    includeVehicle(boxes);
    leave(u"txtCodVeiculo"_s);
    QTRY_COMPARE(support::text(order, u"lblNome"_s), u"HELENA DUARTE"_s);
    QCOMPARE(support::text(order, u"lblMarca"_s), u"FIESTA 1.6"_s);
    done(u"veículo cadastrado por F2, e por F2 também o seu cliente"_s);
}

/// A part that is added on the way stays in its register: it is picked afterwards.
void includePart(Boxes &boxes)
{
    auto *window = form(u"frmCadaPecas"_s);
    cadastro::fill(window, {{u"txtNome"_s, u"filtro de óleo"_s},
                            {u"cboMarca"_s, u"fiesta 1.6"_s},
                            {u"txtCusto"_s, u"18"_s},
                            {u"txtVenda"_s, u"32,5"_s},
                            {u"txtEstoque"_s, u"5"_s},
                            {u"txtEstoqueAtual"_s, u"12"_s}});
    include(window, boxes);
    close(window);
}

void Escolhas::pecaPorF2EF1()
{
    Boxes boxes;
    auto *order = form(u"frmOSAbre"_s);
    support::key(order, u"txtCodPeca"_s, Qt::Key_F2);
    includePart(boxes);
    done(u"peça cadastrada por F2"_s);
    support::key(order, u"txtCodPeca"_s, Qt::Key_F1);
    pick(u"frmCadaPecas"_s, u"óleo"_s, By::DoubleClick);
    leave(u"txtCodPeca"_s);
    QTRY_COMPARE(support::text(order, u"txtDescricao"_s), u"FILTRO DE ÓLEO"_s);
    type(order, u"txtQuantidade"_s, u"2"_s);
    click(order, u"btnItemAdd"_s);
    QCOMPARE(support::text(order, u"lblTotal"_s), u"65,00"_s);
    order_ = includeOrder(boxes);
    done(u"peça escolhida por F1, ordem "_s + order_ + u" aberta com ela"_s);
}

/// Somebody else pays: his account is picked above the payment window.
void Escolhas::contaDeOutroClientePorF1()
{
    Boxes boxes;
    const auto account = [](QWidget *window) {
        support::key(window, u"txtCodCliente"_s, Qt::Key_F1);
        pick(u"frmCadaCliente"_s, u"antunes"_s, By::DoubleClick);
        support::key(window, u"txtCodCliente"_s, Qt::Key_Tab);
        QTRY_COMPARE(support::text(window, u"lblNomeCliente"_s), u"PEDRO ANTUNES"_s);
        type(window, u"txtData_4"_s, runtime::Format(runtime::DateAdd(u"d", 7, runtime::Today()), u"ddmmyyyy"));
    };
    closeOrder(boxes, order_, {.tab = 4, .fill = account, .picture = u"outra_conta"_s});
    const auto debtor =
        u"SELECT Clientes.Nome FROM Clientes, Fiados WHERE Clientes.Codigo = Fiados.CodCliente ORDER BY Fiados.Codigo DESC"_s;
    QCOMPARE(value(debtor), Value(u"PEDRO ANTUNES"_s));
    done(u"fiada na conta de outro cliente, escolhido por F1 na janela de pagamento"_s);
}

} // namespace

Assunto escolhas()
{
    return std::make_unique<Escolhas>();
}

} // namespace demonstracao

#include "escolhas.moc"
