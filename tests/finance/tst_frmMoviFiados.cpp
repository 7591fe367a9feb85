#include "tests/finance/fiados.h"

#include "core/financas.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/ui/application.h"
#include "platform/ui/listview.h"

using namespace Qt::StringLiterals;
using cadastro::clickRow;
using cadastro::columnOf;
using cadastro::errorBox;
using cadastro::Rows;
using cadastro::rowsOf;
using fiados::nulo;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

namespace
{

const QString janela = u"frmMoviFiados"_s;
const Rows semResultado{{u""_s, u""_s, u"Registro Não Localizado"_s, u" "_s, u""_s, u""_s, u""_s}};

/// The entries of `cboOS`.
constexpr int pagas = 0;
constexpr int naoPagas = 1;
constexpr int todas = 2;

} // namespace

/// The list of pending orders: its situations, its searches, and the orders that open from it.
class TstFrmMoviFiados : public fiados::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void opensWithTheUnpaidOrders();
    void tabGoesControlByControl();
    void showsEachRow();
    void showsTheSituationThatIsChosen_data();
    void showsTheSituationThatIsChosen();
    void standsInTheOrderOfTheDueDates();
    void anOrderOfACustomerThatIsGoneIsNotListed();
    void withoutOrdersTheListSaysSo();
    void aColumnHeaderSorts();
    void backCloses();

    void searchesAmongTheUnpaid_data();
    void searchesAmongTheUnpaid();
    void anEmptySearchListsAllUnpaid();
    void aSearchWithoutResultSaysSo();
    void anApostropheInASearchIsARunTimeError();
    void allRecordsComeBackBySituation();
    void locatesACustomerInTheList();

    void aDoubleClickOpensTheOrder();

private:
    void abre() { Case::abre(janela); }
    void escolheSituacao(int situacao) { cadastro::choose(janela_, u"cboOS"_s, situacao); }
    void pesquisa(int campo, const QString &texto);
};

void TstFrmMoviFiados::pesquisa(int campo, const QString &texto)
{
    cadastro::choose(janela_, u"cboPesquisa"_s, campo);
    type(janela_, u"txtTexto"_s, texto);
    click(janela_, u"btnPesquisar"_s);
}

// --- the list

void TstFrmMoviFiados::opensWithTheUnpaidOrders()
{
    tresSituacoes();
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Ordens de Serviços Pendentes]"_s);
    QCOMPARE(cadastro::titlesOf(janela_), (QStringList{QString(), u"Cód. O.S."_s, u"Nome Cliente"_s, u"Data"_s,
                                                       u"Valor"_s, u"Vencimento"_s, u"Pago"_s}));
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"ANA"_s, u"CARLA"_s}));
    QCOMPARE(text(janela_, u"cboOS"_s), u"Não Pagas"_s);
    QCOMPARE(text(janela_, u"cboPesquisa"_s), u"Nome Cliente"_s);
    QCOMPARE(cadastro::focusOf(janela_), u"txtTexto"_s);
    QStringList campos;
    for (int i = 0; i < control<QComboBox>(janela_, u"cboPesquisa"_s)->count(); ++i) {
        campos << control<QComboBox>(janela_, u"cboPesquisa"_s)->itemText(i);
    }
    QCOMPARE(campos,
             (QStringList{u"Nome Cliente"_s, u"Fone1 do Cliente"_s, u"Celular do Cliente"_s, u"Placa do Veículo"_s}));
}

void TstFrmMoviFiados::tabGoesControlByControl()
{
    tresSituacoes();
    abre();
    clickRow(janela_, 0);
    const QStringList ordem{u"txtTexto"_s,  u"btnPesquisar"_s, u"btnLocalizar"_s, u"Lista"_s,      u"btnConta"_s,
                            u"btnVoltar"_s, u"cboOS"_s,        u"btnTodos"_s,     u"cboPesquisa"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"txtTexto"_s, ordem.size()), ordem);
}

void TstFrmMoviFiados::showsEachRow()
{
    const qint32 ana = program_->customer(u"ANA"_s);
    pendente(ana, u"12"_s, u"1150.255"_s, u"06/20/2024"_s);
    pendente(ana, u"0"_s, u"10"_s, u"06/21/2024"_s, true);
    pendente(ana, u"Null"_s, u"10"_s, u"06/22/2024"_s);
    abre();
    escolheSituacao(todas);
    QCOMPARE(rowsOf(janela_),
             (Rows{{u"0001"_s, u"0012"_s, u"ANA"_s, u"10/05/2024"_s, u"1.150,26"_s, u"20/06/2024"_s, u"Não"_s},
                   {u"0002"_s, u"0000"_s, u"ANA"_s, u"10/05/2024"_s, u"10,00"_s, u"21/06/2024"_s, u"Sim"_s},
                   {u"0003"_s, u""_s, u"ANA"_s, u"10/05/2024"_s, u"10,00"_s, u"22/06/2024"_s, u"Não"_s}}));
    const auto *lista = cadastro::list(janela_);
    QCOMPARE(lista->item(0).smallIcon(), 1);
    QCOMPARE(lista->item(0).tag(), u"12"_s);
    for (const int semOrdem : {1, 2}) {
        QCOMPARE(lista->item(semOrdem).smallIcon(), 0);
        QCOMPARE(lista->item(semOrdem).tag(), QString());
    }
}

void TstFrmMoviFiados::showsTheSituationThatIsChosen_data()
{
    QTest::addColumn<int>("situacao");
    QTest::addColumn<QStringList>("clientes");
    QTest::newRow("Pagas") << pagas << QStringList{u"BRUNO"_s};
    QTest::newRow("Não Pagas") << naoPagas << QStringList{u"ANA"_s, u"CARLA"_s};
    QTest::newRow("Todas") << todas << QStringList{u"ANA"_s, u"BRUNO"_s, u"CARLA"_s};
}

void TstFrmMoviFiados::showsTheSituationThatIsChosen()
{
    QFETCH(int, situacao);
    tresSituacoes();
    abre();
    escolheSituacao(situacao);
    QTEST(columnOf(janela_, 2), "clientes");
    QCOMPARE(text(janela_, u"cboOS"_s), QString::fromUtf8(QTest::currentDataTag()));
    program_->sql(u"UPDATE Clientes SET Nome = 'DANIEL' WHERE Nome = 'BRUNO'"_s);
    click(janela_, u"btnTodos"_s);
    QFETCH(QStringList, clientes);
    QCOMPARE(columnOf(janela_, 2), clientes.replaceInStrings(u"BRUNO"_s, u"DANIEL"_s));
}

void TstFrmMoviFiados::standsInTheOrderOfTheDueDates()
{
    const qint32 ana = program_->customer(u"ANA"_s);
    pendente(ana, u"1"_s, u"1"_s, u"07/01/2024"_s);
    pendente(ana, u"2"_s, u"1"_s, u"06/30/2024"_s);
    pendente(ana, u"3"_s, u"1"_s, u"01/15/2023"_s);
    abre();
    QCOMPARE(columnOf(janela_, 5), (QStringList{u"15/01/2023"_s, u"30/06/2024"_s, u"01/07/2024"_s}));
}

void TstFrmMoviFiados::anOrderOfACustomerThatIsGoneIsNotListed()
{
    tresSituacoes();
    program_->sql(u"DELETE * FROM Clientes WHERE Nome = 'ANA'"_s);
    abre();
    QCOMPARE(columnOf(janela_, 2), QStringList{u"CARLA"_s});
}

void TstFrmMoviFiados::withoutOrdersTheListSaysSo()
{
    abre();
    QCOMPARE(rowsOf(janela_), semResultado);
    QVERIFY(!control<QWidget>(janela_, u"btnConta"_s)->isEnabled());
    cadastro::doubleClickRow(janela_, 0);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmOSConsulta"_s));
}

void TstFrmMoviFiados::aColumnHeaderSorts()
{
    tresSituacoes();
    abre();
    escolheSituacao(todas);
    cadastro::clickHeader(janela_, 2);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"ANA"_s, u"BRUNO"_s, u"CARLA"_s}));
    cadastro::clickHeader(janela_, 2);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"CARLA"_s, u"BRUNO"_s, u"ANA"_s}));
    cadastro::clickHeader(janela_, 1);
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
}

void TstFrmMoviFiados::backCloses()
{
    abre();
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(janela));
}

// --- searching

void TstFrmMoviFiados::searchesAmongTheUnpaid_data()
{
    QTest::addColumn<int>("campo");
    QTest::addColumn<QString>("procurado");
    QTest::addColumn<QStringList>("clientes");
    QTest::newRow("a part of the name") << 0 << u"ar"_s << QStringList{u"CARLA"_s};
    QTest::newRow("a name that has paid") << 0 << u"BRUNO"_s << QStringList{u"Registro Não Localizado"_s};
    QTest::newRow("phone") << 1 << u"3232-1"_s << QStringList{u"ANA"_s};
    QTest::newRow("mobile phone") << 2 << u"98888"_s << QStringList{u"ANA"_s, u"CARLA"_s};
    QTest::newRow("plate") << 3 << u"car1"_s << QStringList{u"CARLA"_s};
    QTest::newRow("plate, all") << 3 << u"1D23"_s << QStringList{u"ANA"_s, u"CARLA"_s};
}

void TstFrmMoviFiados::searchesAmongTheUnpaid()
{
    QFETCH(int, campo);
    QFETCH(QString, procurado);
    tresSituacoes();
    abre();
    escolheSituacao(pagas);
    pesquisa(campo, procurado);
    QTEST(columnOf(janela_, 2), "clientes");
}

void TstFrmMoviFiados::anEmptySearchListsAllUnpaid()
{
    tresSituacoes();
    abre();
    escolheSituacao(pagas);
    click(janela_, u"btnPesquisar"_s);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"ANA"_s, u"CARLA"_s}));
}

void TstFrmMoviFiados::aSearchWithoutResultSaysSo()
{
    tresSituacoes();
    abre();
    pesquisa(0, u"ZULMIRA"_s);
    QCOMPARE(rowsOf(janela_), semResultado);
}

void TstFrmMoviFiados::anApostropheInASearchIsARunTimeError()
{
    tresSituacoes();
    abre();
    const QString erro =
        errorBox(u"SELECT FIADOS.*, Clientes.Nome FROM FIADOS, Clientes WHERE Fiados.Pago = False AND "
                 "Clientes.Codigo = Fiados.CodCliente AND Clientes.Nome LIKE '*D'ARC*' ORDER BY Fiados.Vencimento"_s);
    QVERIFY(!erro.isEmpty());
    boxes_->title({}).critical(erro);
    pesquisa(0, u"D'ARC"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
}

void TstFrmMoviFiados::allRecordsComeBackBySituation()
{
    tresSituacoes();
    abre();
    escolheSituacao(todas);
    pesquisa(0, u"ANA"_s);
    QCOMPARE(columnOf(janela_, 2), QStringList{u"ANA"_s});
    click(janela_, u"btnTodos"_s);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"ANA"_s, u"BRUNO"_s, u"CARLA"_s}));
}

void TstFrmMoviFiados::locatesACustomerInTheList()
{
    tresSituacoes();
    abre();
    type(janela_, u"txtTexto"_s, u"car"_s);
    click(janela_, u"btnLocalizar"_s);
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 1);
    type(janela_, u"txtTexto"_s, u"arla"_s); // not how the name begins
    click(janela_, u"btnLocalizar"_s);
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 1);
}

void TstFrmMoviFiados::aDoubleClickOpensTheOrder()
{
    tresSituacoes();
    pendente(1, u"0"_s);
    abre();
    cadastro::doubleClickRow(janela_, 2);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmOSConsulta"_s));
    cadastro::doubleClickRow(janela_, 1);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSConsulta"_s));
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16{10});
    QCOMPARE(core::CodigoConsulta, 3);
}

TARVELO_TEST_MAIN(TstFrmMoviFiados)
#include "tst_frmMoviFiados.moc"
