#include "tests/finance/fiados.h"

#include "core/banco.h"
#include "core/modulo.h"
#include "platform/ui/application.h"
#include "platform/ui/listview.h"

using namespace Qt::StringLiterals;
using cadastro::columnOf;
using cadastro::Fields;
using cadastro::isOpen;
using cadastro::Rows;
using cadastro::rowsOf;
using cadastro::shown;
using support::click;
using support::text;
using support::type;

namespace
{

const QString janela = u"frmMoviFiadosConta"_s;

/// The modes of the window.
constexpr int umCliente = 0;
constexpr int clientesPendentes = 11;

} // namespace

/// The account of a customer: whose it is, the way from one customer to the next, and the list.
class TstFrmMoviFiadosConta : public fiados::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void opensOnOneCustomer_data();
    void opensOnOneCustomer();
    void aCustomerThatIsGoneIsNamedSo();
    void tabGoesFieldByField();
    void backCloses();

    void opensOnTheFirstWithAnAccount();
    void withoutAccountsTheLoadStops();
    void withoutACustomerNothingIsAdded();
    void walksFromCustomerToCustomer();
    void theLastCustomerIsTheEnd();
    void theFirstCustomerIsTheBeginning();
    void walksOnFromACustomerThatWasPicked();
    void walksPastRowsDeletedMeanwhile();
    void walksWhereAllRowsAreGone();
    void holdsNoLockBetweenTwoSteps();

    void theRegisterGivesTheCustomer();
    void theRegisterOpensAnAccountThatWasClosed();
    void aCustomerPickedWhileARowIsChangedGivesThatUp();
    void nobodyChangesTheCustomerWhileARowIsChanged();
    void theCustomerIsTold();

    void listsTheAccountInTheOrderOfItsDates();
    void listsNobodyElsesRows();
    void allRecordsAreReadAgain();
    void anOrderIsTheLastFourLetters_data();
    void anOrderIsTheLastFourLetters();
    void aChargeOpensItsOrder();
    void aChargeInInstalmentsOpensNone();

private:
    void abre(int modo, qint32 cliente = 0);
    void tresContas();
    void clica(const QString &botao, const QStringList &codigos);
    ui::Form *abreCadastro();
    bool habilitado(const QString &nome) const { return support::controlOf(janela_, nome)->isEnabled(); }
};

void TstFrmMoviFiadosConta::abre(int modo, qint32 cliente)
{
    core::CodigoConsulta = cliente;
    Case::abre(janela, modo);
}

/// ANA with two rows, BRUNO with one and DANIEL with two; CARLA has no account.
void TstFrmMoviFiadosConta::tresContas()
{
    for (const QString &nome : {u"ANA"_s, u"BRUNO"_s, u"CARLA"_s, u"DANIEL"_s}) {
        program_->customer(nome);
    }
    program_->sql(u"UPDATE Clientes SET Fone1 = '(17)3232-1111' WHERE Codigo = 1"_s);
    for (const qint32 cliente : {4, 1, 2, 1, 4}) {
        lancamento(cliente, u"05/10/2024"_s, u"CONTA %1"_s.arg(cliente), u"10"_s, u"Null"_s, u"10"_s);
    }
}

/// Presses a button as often as there are customers to come, each of whom must be shown with his rows.
void TstFrmMoviFiadosConta::clica(const QString &botao, const QStringList &codigos)
{
    for (const QString &codigo : codigos) {
        click(janela_, botao);
        QCOMPARE(text(janela_, u"lblCodigo"_s), codigo);
        const QStringList descricoes = columnOf(janela_, 2);
        QVERIFY(!descricoes.isEmpty());
        QCOMPARE(descricoes.front(), u"CONTA "_s + codigo.right(1));
    }
}

ui::Form *TstFrmMoviFiadosConta::abreCadastro()
{
    click(janela_, u"btnClienteFind"_s);
    auto *cadastro = ui::Forms::instance().find(u"frmCadaCliente"_s);
    click(cadastro, u"btnTodos"_s);
    return cadastro;
}

// --- whose account it is

void TstFrmMoviFiadosConta::opensOnOneCustomer_data()
{
    QTest::addColumn<int>("modo");
    QTest::newRow("from the pending orders") << umCliente;
    QTest::newRow("from the report of debtors") << 28;
}

void TstFrmMoviFiadosConta::opensOnOneCustomer()
{
    QFETCH(int, modo);
    tresContas();
    abre(modo, 1);
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Contas do Cliente]"_s);
    QCOMPARE(cadastro::titlesOf(janela_),
             (QStringList{QString(), u"Data"_s, u"Descrição"_s, u"Entrada"_s, u"Saída"_s, u"Saldo"_s}));
    const Fields cliente{{u"lblCodigo"_s, u"0001"_s},
                         {u"lblNome"_s, u"ANA"_s},
                         {u"lblFone"_s, u"(17)3232-1111"_s},
                         {u"txtData"_s, QString()}};
    QCOMPARE(shown(janela_, cliente), cliente);
    QCOMPARE(columnOf(janela_), (QStringList{u"0002"_s, u"0004"_s}));
    QVERIFY(!habilitado(u"btnClienteFind"_s) && !habilitado(u"btnAnterior"_s) && !habilitado(u"btnProximo"_s));
    QVERIFY(habilitado(u"btnClienteInfo"_s));
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
}

void TstFrmMoviFiadosConta::aCustomerThatIsGoneIsNamedSo()
{
    lancamento(7, u"05/10/2024"_s, u"CONTA 7"_s, u"10"_s, u"Null"_s);
    abre(umCliente, 7);
    const Fields cliente{
        {u"lblCodigo"_s, u"0007"_s}, {u"lblNome"_s, u"Código Não Localizado"_s}, {u"lblFone"_s, QString()}};
    QCOMPARE(shown(janela_, cliente), cliente);
    QCOMPARE(columnOf(janela_, 2), QStringList{u"CONTA 7"_s});
}

void TstFrmMoviFiadosConta::tabGoesFieldByField()
{
    tresContas();
    abre(clientesPendentes);
    const QStringList ordem{u"txtData"_s,        u"txtDescricao"_s,   u"optEntrada"_s,  u"txtValor"_s,
                            u"btnIncluir"_s,     u"btnAlterar"_s,     u"btnExcluir"_s,  u"btnVoltar"_s,
                            u"btnClienteFind"_s, u"btnClienteInfo"_s, u"btnAnterior"_s, u"btnProximo"_s,
                            u"btnTodos"_s,       u"Lista"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"txtData"_s, ordem.size()), ordem);
}

void TstFrmMoviFiadosConta::backCloses()
{
    tresContas();
    abre(clientesPendentes);
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!isOpen(janela));
}

// --- one customer after the other

void TstFrmMoviFiadosConta::opensOnTheFirstWithAnAccount()
{
    tresContas();
    abre(clientesPendentes, 4);
    const Fields cliente{{u"lblCodigo"_s, u"0001"_s}, {u"lblNome"_s, u"ANA"_s}, {u"lblFone"_s, u"(17)3232-1111"_s}};
    QCOMPARE(shown(janela_, cliente), cliente);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"CONTA 1"_s, u"CONTA 1"_s}));
    for (const QString &botao : {u"btnClienteFind"_s, u"btnClienteInfo"_s, u"btnAnterior"_s, u"btnProximo"_s}) {
        QVERIFY2(habilitado(botao), qPrintable(botao));
    }
}

void TstFrmMoviFiadosConta::withoutAccountsTheLoadStops()
{
    program_->customer(u"ANA"_s);
    lancamento(7, u"05/10/2024"_s, u"DE NINGUÉM"_s, u"10"_s, u"Null"_s);
    abre(clientesPendentes, 1);
    const Fields nada{{u"lblCodigo"_s, QString()}, {u"lblNome"_s, QString()}, {u"lblFone"_s, QString()}};
    QCOMPARE(shown(janela_, nada), nada);
    QCOMPARE(rowsOf(janela_), Rows());
    for (const QString &botao : {u"btnClienteFind"_s, u"btnClienteInfo"_s, u"btnAnterior"_s, u"btnProximo"_s}) {
        QVERIFY2(!habilitado(botao), qPrintable(botao));
    }
    click(janela_, u"btnTodos"_s);
    click(janela_, u"btnAlterar"_s);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(rowsOf(janela_), Rows());
    QVERIFY(!ui::Application::ended());
}

void TstFrmMoviFiadosConta::withoutACustomerNothingIsAdded()
{
    abre(clientesPendentes);
    type(janela_, u"txtData"_s, u"15052024"_s);
    type(janela_, u"txtDescricao"_s, u"peças"_s);
    type(janela_, u"txtValor"_s, u"10"_s);
    boxes_->exclamation(u"Código do Cliente Inválido"_s);
    click(janela_, u"btnIncluir"_s);
    QVERIFY(program_->rows(u"SELECT Codigo FROM ContaFiado"_s).empty());
    QCOMPARE(text(janela_, u"txtDescricao"_s), u"PEÇAS"_s);
}

void TstFrmMoviFiadosConta::walksFromCustomerToCustomer()
{
    tresContas();
    abre(clientesPendentes);
    clica(u"btnProximo"_s, {u"0002"_s, u"0004"_s});
    QCOMPARE(text(janela_, u"lblNome"_s), u"DANIEL"_s);
    QCOMPARE(text(janela_, u"lblFone"_s), QString());
    clica(u"btnAnterior"_s, {u"0002"_s, u"0001"_s});
    QCOMPARE(text(janela_, u"lblNome"_s), u"ANA"_s);
    clica(u"btnProximo"_s, {u"0002"_s});
}

void TstFrmMoviFiadosConta::theLastCustomerIsTheEnd()
{
    tresContas();
    abre(clientesPendentes);
    clica(u"btnProximo"_s, {u"0002"_s, u"0004"_s, u"0004"_s, u"0004"_s});
    clica(u"btnAnterior"_s, {u"0002"_s});
}

void TstFrmMoviFiadosConta::theFirstCustomerIsTheBeginning()
{
    tresContas();
    abre(clientesPendentes);
    clica(u"btnAnterior"_s, {u"0001"_s, u"0001"_s});
    clica(u"btnProximo"_s, {u"0002"_s});
}

/// The walk stands where it stood: the customer who was picked is no step of it.
void TstFrmMoviFiadosConta::walksOnFromACustomerThatWasPicked()
{
    tresContas();
    abre(clientesPendentes);
    clica(u"btnProximo"_s, {u"0002"_s});
    cadastro::doubleClickRow(abreCadastro(), 3);
    QTRY_COMPARE(text(janela_, u"lblNome"_s), u"DANIEL"_s);
    clica(u"btnProximo"_s, {u"0004"_s}); // none but his rows are left
    clica(u"btnAnterior"_s, {u"0002"_s});
}

void TstFrmMoviFiadosConta::walksPastRowsDeletedMeanwhile()
{
    tresContas();
    abre(clientesPendentes);
    program_->sql(u"DELETE * FROM ContaFiado WHERE CodCliente = 2"_s);
    clica(u"btnProximo"_s, {u"0004"_s});
    program_->sql(u"DELETE * FROM ContaFiado WHERE Codigo = 5"_s); // DANIEL's last one
    clica(u"btnProximo"_s, {u"0004"_s});
    clica(u"btnAnterior"_s, {u"0001"_s});
}

void TstFrmMoviFiadosConta::walksWhereAllRowsAreGone()
{
    tresContas();
    abre(clientesPendentes);
    program_->sql(u"DELETE * FROM ContaFiado"_s);
    click(janela_, u"btnProximo"_s);
    click(janela_, u"btnAnterior"_s);
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0001"_s);
    QVERIFY(!ui::Application::ended());
}

void TstFrmMoviFiadosConta::holdsNoLockBetweenTwoSteps()
{
    tresContas();
    abre(clientesPendentes);
    support::Boxes::checkWhileUp(u"the account on its first customer"_s);
    clica(u"btnProximo"_s, {u"0002"_s});
    support::Boxes::checkWhileUp(u"the account on the next one"_s);
}

// --- the register

void TstFrmMoviFiadosConta::theRegisterGivesTheCustomer()
{
    tresContas();
    abre(clientesPendentes);
    auto *cadastro = abreCadastro();
    QCOMPARE(core::ModoChamada, qint16{19});
    cadastro::doubleClickRow(cadastro, 2);
    QTRY_VERIFY(!isOpen(u"frmCadaCliente"_s));
    const Fields cliente{{u"lblCodigo"_s, u"0003"_s}, {u"lblNome"_s, u"CARLA"_s}, {u"lblFone"_s, QString()}};
    QCOMPARE(shown(janela_, cliente), cliente);
    QCOMPARE(rowsOf(janela_), Rows());
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
}

/// In the mode of the picker it has no customer of its own, and none before or behind.
void TstFrmMoviFiadosConta::theRegisterOpensAnAccountThatWasClosed()
{
    tresContas();
    abre(clientesPendentes);
    auto *cadastro = abreCadastro();
    janela_->Unload();
    cadastro::doubleClickRow(cadastro, 3);
    QTRY_VERIFY(!isOpen(u"frmCadaCliente"_s));
    janela_ = ui::Forms::instance().find(janela);
    QVERIFY(janela_ != nullptr);
    const Fields cliente{{u"lblCodigo"_s, u"0004"_s}, {u"lblNome"_s, u"DANIEL"_s}, {u"lblFone"_s, QString()}};
    QCOMPARE(shown(janela_, cliente), cliente);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"CONTA 4"_s, u"CONTA 4"_s}));
    QVERIFY(habilitado(u"btnClienteFind"_s) && habilitado(u"btnClienteInfo"_s));
    QVERIFY(!habilitado(u"btnAnterior"_s) && !habilitado(u"btnProximo"_s));
}

void TstFrmMoviFiadosConta::aCustomerPickedWhileARowIsChangedGivesThatUp()
{
    tresContas();
    abre(clientesPendentes);
    auto *cadastro = abreCadastro();
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    type(janela_, u"txtValor"_s, u"99"_s);
    cadastro::doubleClickRow(cadastro, 3);
    QTRY_COMPARE(text(janela_, u"lblCodigo"_s), u"0004"_s);
    const Fields livre{{u"btnAlterar"_s, u"&Alterar"_s}, {u"btnVoltar"_s, u"&Voltar"_s}, {u"txtValor"_s, QString()}};
    QCOMPARE(shown(janela_, livre), livre);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"CONTA 4"_s, u"CONTA 4"_s}));
    QCOMPARE(program_->rows(u"SELECT Entrada FROM ContaFiado WHERE Entrada <> 10"_s), Rows());
}

void TstFrmMoviFiadosConta::nobodyChangesTheCustomerWhileARowIsChanged()
{
    tresContas();
    abre(clientesPendentes);
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    const QStringList travados{u"Lista"_s,       u"btnIncluir"_s, u"btnExcluir"_s,    u"btnTodos"_s,
                               u"btnAnterior"_s, u"btnProximo"_s, u"btnClienteFind"_s};
    for (const QString &nome : travados) {
        QVERIFY2(!habilitado(nome), qPrintable(nome));
    }
    click(janela_, u"btnVoltar"_s);
    for (const QString &nome : travados) {
        QVERIFY2(habilitado(nome), qPrintable(nome));
    }
}

void TstFrmMoviFiadosConta::theCustomerIsTold()
{
    tresContas();
    abre(umCliente, 1);
    boxes_->information(u"Código Cliente:\t0001\nNome Cliente:\tANA\nEndereço:\t, \nComplemento:\t\nBairro:\t\n"
                        "Cidade:\t\nFone1:\t(17)3232-1111\nFone2:\t\nCelular:\t\nObservações:\t\n"_s);
    click(janela_, u"btnClienteInfo"_s);
}

// --- the list

void TstFrmMoviFiadosConta::listsTheAccountInTheOrderOfItsDates()
{
    program_->customer(u"ANA"_s);
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"1150.255"_s, u"Null"_s, u"1150.25"_s);
    lancamento(1, u"05/12/2024"_s, u"PAGAMENTO: ANA"_s, u"Null"_s, u"150"_s, u"-1000.5"_s);
    lancamento(1, u"05/10/2024"_s, u"SERVIÇO"_s, u"10"_s, u"Null"_s, u"1010.25"_s);
    lancamento(1, u"01/02/2024"_s, u"ANTIGA"_s, u"1"_s, u"Null"_s, u"1011.25"_s);
    abre(umCliente, 1);
    QCOMPARE(rowsOf(janela_),
             (Rows{{u"0004"_s, u"02/01/2024"_s, u"ANTIGA"_s, u"1,00"_s, u" "_s, u"1.011,25"_s},
                   {u"0001"_s, u"10/05/2024"_s, u"PEÇAS"_s, u"1.150,26"_s, u" "_s, u"1.150,25"_s},
                   {u"0003"_s, u"10/05/2024"_s, u"SERVIÇO"_s, u"10,00"_s, u" "_s, u"1.010,25"_s},
                   {u"0002"_s, u"12/05/2024"_s, u"PAGAMENTO: ANA"_s, u" "_s, u"150,00"_s, u"-1.000,50"_s}}));
}

void TstFrmMoviFiadosConta::listsNobodyElsesRows()
{
    tresContas();
    abre(umCliente, 3);
    QCOMPARE(rowsOf(janela_), Rows());
}

void TstFrmMoviFiadosConta::allRecordsAreReadAgain()
{
    tresContas();
    abre(umCliente, 2);
    lancamento(2, u"05/11/2024"_s, u"OUTRA"_s, u"Null"_s, u"4"_s, u"6"_s);
    QCOMPARE(columnOf(janela_, 2), QStringList{u"CONTA 2"_s});
    click(janela_, u"btnTodos"_s);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"CONTA 2"_s, u"OUTRA"_s}));
}

void TstFrmMoviFiadosConta::anOrderIsTheLastFourLetters_data()
{
    QTest::addColumn<QString>("descricao");
    QTest::addColumn<QString>("tag");
    QTest::newRow("a charge") << u"ORDEM SERVIÇO Nº 0012"_s << u"0012"_s;
    QTest::newRow("five digits") << u"ORDEM SERVIÇO Nº 12345"_s << u"2345"_s;
    QTest::newRow("an instalment") << u"ORDEM SERVIÇO Nº 0012 PARCELA 02"_s << u"A 02"_s;
    QTest::newRow("no number") << u"ORDEM SERVIÇO Nº "_s << u" Nº "_s;
    QTest::newRow("one letter short") << u"ORDEM SERVIÇO Nº"_s << QString();
    QTest::newRow("small letters") << u"Ordem Serviço Nº 0012"_s << QString();
    QTest::newRow("behind something") << u"A ORDEM SERVIÇO Nº 0012"_s << QString();
    QTest::newRow("a payment") << u"PAGAMENTO: ORDEM SERVIÇO Nº 0012"_s << QString();
}

void TstFrmMoviFiadosConta::anOrderIsTheLastFourLetters()
{
    QFETCH(QString, descricao);
    QFETCH(QString, tag);
    program_->customer(u"ANA"_s);
    lancamento(1, u"05/10/2024"_s, descricao, u"10"_s, u"Null"_s);
    abre(umCliente, 1);
    const ui::ListItem linha = cadastro::list(janela_)->item(0);
    QCOMPARE(linha.smallIcon(), tag.isEmpty() ? 0 : 1);
    QCOMPARE(linha.tag(), tag);
}

void TstFrmMoviFiadosConta::aChargeOpensItsOrder()
{
    program_->customer(u"ANA"_s);
    lancamento(1, u"05/10/2024"_s, u"PEÇAS 0034"_s, u"10"_s, u"Null"_s);
    lancamento(1, u"05/10/2024"_s, u"ORDEM SERVIÇO Nº 0012"_s, u"10"_s, u"Null"_s);
    abre(umCliente, 1);
    cadastro::doubleClickRow(janela_, 0);
    QCoreApplication::processEvents();
    QVERIFY(!isOpen(u"frmOSConsulta"_s));
    cadastro::doubleClickRow(janela_, 1);
    QTRY_VERIFY(isOpen(u"frmOSConsulta"_s));
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16{10});
    QCOMPARE(core::CodigoConsulta, 12);
}

void TstFrmMoviFiadosConta::aChargeInInstalmentsOpensNone()
{
    program_->customer(u"ANA"_s);
    lancamento(1, u"05/10/2024"_s, u"ORDEM SERVIÇO Nº 0012 PARCELA 02"_s, u"10"_s, u"Null"_s);
    abre(umCliente, 1);
    cadastro::doubleClickRow(janela_, 0);
    QCoreApplication::processEvents();
    QVERIFY(!isOpen(u"frmOSConsulta"_s));
    QVERIFY(!ui::Application::ended());
}

TARVELO_TEST_MAIN(TstFrmMoviFiadosConta)
#include "tst_frmMoviFiadosConta.moc"
