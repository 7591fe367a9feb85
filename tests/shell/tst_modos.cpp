#include "core/modulo.h"
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/frmMDI.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/boxes.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QAction>
#include <QPointer>
#include <QTest>

using namespace Qt::StringLiterals;

/// The program's own windows, asked for by a command while they stand open for another use.
class TestModos : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        shell::registerForms();
        registers::registerForms();
        workorders::registerForms();
        reports::registerForms();
        stock::registerForms();
        estimates::registerForms();
        finance::registerForms();
    }

    void init()
    {
        program_ = std::make_unique<support::Program>();
        shell::principal().MDIForm_Load();
    }

    void cleanup()
    {
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        program_.reset();
    }

    void commandShowsTheWindowInItsOwnUse_data();
    void commandShowsTheWindowInItsOwnUse();
    void queryIsThereToCloseOrToLook();
    void sameCommandKeepsWhatWasTyped();
    void calledPickerStaysAsItIs();

private:
    static void command(const QString &item) { shell::principal().findChild<QAction *>(item)->trigger(); }
    static ui::Form *window(const QString &name) { return ui::Forms::instance().find(name); }

    std::unique_ptr<support::Program> program_;
};

void TestModos::commandShowsTheWindowInItsOwnUse_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("otherMode");
    QTest::newRow("customers, picking for a vehicle") << u"itmCadaClie"_s << u"frmCadaCliente"_s << 1;
    QTest::newRow("vehicles, picking for an order") << u"itmCadaVeiculos"_s << u"frmCadaVeiculos"_s << 3;
    QTest::newRow("parts, picking for an order") << u"itmCadaPecas"_s << u"frmCadaPecas"_s << 5;
    QTest::newRow("suppliers, picking for a receipt") << u"itmCadaFornecedores"_s << u"frmCadaFornecedor"_s << 16;
    QTest::newRow("query, showing one order") << u"itmOSConsultar"_s << u"frmOSConsulta"_s << 10;
    QTest::newRow("query, closing") << u"itmOSConsultar"_s << u"frmOSConsulta"_s << 9;
    QTest::newRow("closing, query") << u"itmOSFecha"_s << u"frmOSConsulta"_s << 0;
    QTest::newRow("stock of all parts, shopping list") << u"itmRelaEstoqueGeralPecas"_s << u"frmRelatorio"_s << 32;
    QTest::newRow("shopping list, prices") << u"itmRelaListaCompras"_s << u"frmRelatorio"_s << 37;
    QTest::newRow("debtors, visits of vehicles") << u"itmRelaListaDevedores"_s << u"frmRelatorio"_s << 31;
    QTest::newRow("birthdays, payment of an order") << u"itmRelaNiver"_s << u"frmRelatorio"_s << 25;
    QTest::newRow("prices, stock of all parts") << u"itmRelaListaPecas"_s << u"frmRelatorio"_s << 22;
}

void TestModos::commandShowsTheWindowInItsOwnUse()
{
    QFETCH(const QString, item);
    QFETCH(const QString, form);
    QFETCH(const int, otherMode);
    command(item);
    const QString wanted = window(form)->windowTitle();
    ui::Forms::instance().Unload(form);
    core::ModoChamada = static_cast<qint16>(otherMode);
    const QPointer<ui::Form> other = ui::Forms::instance().Show(form);
    QVERIFY(other->windowTitle() != wanted);

    command(item);

    QCOMPARE(window(form)->windowTitle(), wanted);
    QVERIFY(window(form)->isVisible());
    QVERIFY(window(form) != other);
}

void TestModos::queryIsThereToCloseOrToLook()
{
    const QString query = u"frmOSConsulta"_s;
    command(u"itmOSConsultar"_s);
    QVERIFY(!support::controlOf(window(query), u"btnFechar"_s)->isVisible());
    command(u"itmOSFecha"_s);
    QCOMPARE(window(query)->windowTitle(), u"Tarvelo - [Fecha O.S.]"_s);
    QVERIFY(support::controlOf(window(query), u"btnFechar"_s)->isVisible());
    support::click(&shell::principal(), u"Toolbar1_12"_s);
    QCOMPARE(window(query)->windowTitle(), u"Tarvelo - [Fecha O.S.]"_s);
    command(u"itmOSConsultar"_s);
    QCOMPARE(window(query)->windowTitle(), u"Tarvelo - [Consulta O.S.]"_s);
    QVERIFY(!support::controlOf(window(query), u"btnFechar"_s)->isVisible());
}

void TestModos::sameCommandKeepsWhatWasTyped()
{
    command(u"itmOSAbrir"_s);
    support::type(window(u"frmOSAbre"_s), u"txtObs"_s, u"BARULHO NA RODA"_s);
    command(u"itmCadaClie"_s);
    support::click(&shell::principal(), u"Toolbar1_11"_s);
    QCOMPARE(support::text(window(u"frmOSAbre"_s), u"txtObs"_s), u"BARULHO NA RODA"_s);
}

/// A field that calls a register which is open already takes it as it is.
void TestModos::calledPickerStaysAsItIs()
{
    command(u"itmCadaClie"_s);
    const auto *customers = window(u"frmCadaCliente"_s);
    command(u"itmCadaVeiculos"_s);
    support::click(window(u"frmCadaVeiculos"_s), u"btnClienteFind"_s);
    QCOMPARE(window(u"frmCadaCliente"_s), customers);
    QCOMPARE(core::ModoChamada, 1);
}

TARVELO_TEST_MAIN(TestModos)
#include "tst_modos.moc"
