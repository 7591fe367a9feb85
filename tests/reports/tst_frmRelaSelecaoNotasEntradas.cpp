#include "core/modos.h"
#include "core/modulo.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "support/boxes.h"
#include "support/cadastro.h"

using namespace Qt::StringLiterals;
using cadastro::focusOf;
using core::ModoChamada;
using support::click;
using support::key;
using support::text;
using support::type;

namespace
{

const QString janela = u"frmRelaSelecaoNotasEntradas"_s;
const QString cadastroFornecedores = u"frmCadaFornecedor"_s;
const QString consulta = u"frmMoviEntradaPecaConsultaFornecedor"_s;
const QString naoLocalizado = u"Código do Fornecedor não localizado"_s;

} // namespace

/// The window that asks for a supplier, a period and a situation.
class TestSelecaoNotas : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opensWithThePastMonthAndAll();
    void tabGoesControlByControl();
    void backCloses();
    void leavingTheCodeShowsTheSupplier();
    void anUnknownCodeIsTold_data();
    void anUnknownCodeIsTold();
    void anUnknownCodeDoesNotKeepTheFocus();
    void anEmptyCodeIsLeftInSilence();
    void withoutASupplierNothingOpens_data();
    void withoutASupplierNothingOpens();
    void aSupplierDeletedMeanwhileIsTold();
    void theModeOfTheQueryOpensTheQuery();
    void anyOtherModeOpensTheReport_data();
    void anyOtherModeOpensTheReport();
    void theRegisterHandsTheCodeBack_data();
    void theRegisterHandsTheCodeBack();
    void anUnknownCodeIsToldAheadOfTheRegister();

private:
    void abre(int modo = 0) { janela_ = cadastro::open(janela, modo); }
    void fornecedor(const QString &nome)
    {
        programa_->sql(u"INSERT INTO Fornecedores (Nome) VALUES ('%1')"_s.arg(nome));
    }

    std::unique_ptr<support::Program> programa_;
    std::unique_ptr<support::Boxes> caixas_;
    ui::Form *janela_ = nullptr;
};

void TestSelecaoNotas::init()
{
    registers::registerForms();
    reports::registerForms();
    cadastro::standIn(consulta, {u"lblPrint"_s});
    cadastro::standIn(u"frmRelatorio"_s, {u"lblPrint"_s});
    programa_ = std::make_unique<support::Program>();
    caixas_ = std::make_unique<support::Boxes>();
    caixas_->title(u"Tarvelo"_s);
    fornecedor(u"ANA"_s);
    fornecedor(u"BRUNO"_s);
}

void TestSelecaoNotas::cleanup()
{
    caixas_.reset();
    programa_.reset();
}

void TestSelecaoNotas::opensWithThePastMonthAndAll()
{
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Relatório Notas Entrada]"_s);
    QCOMPARE(text(janela_, u"txtDataInicio"_s), u"15/04/2024"_s);
    QCOMPARE(text(janela_, u"txtDataFim"_s), u"15/05/2024"_s);
    const auto *situacao = support::control<QComboBox>(janela_, u"cboPago"_s);
    QStringList entradas;
    for (int i = 0; i < situacao->count(); ++i) {
        entradas << situacao->itemText(i);
    }
    QCOMPARE(entradas, (QStringList{u"Pagos"_s, u"Não Pagos"_s, u"Todos"_s}));
    QCOMPARE(situacao->currentText(), u"Todos"_s);
    QCOMPARE(text(janela_, u"txtCodForn"_s) + text(janela_, u"lblFornecedor"_s), QString());
    QCOMPARE(focusOf(janela_), u"txtCodForn"_s);
}

void TestSelecaoNotas::tabGoesControlByControl()
{
    abre();
    const QStringList ordem{u"txtCodForn"_s, u"btnFornecedorFind"_s, u"txtDataInicio"_s, u"txtDataFim"_s,
                            u"cboPago"_s,    u"btnPreenche"_s,       u"btnVoltar"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"txtCodForn"_s, ordem.size()), ordem);
}

void TestSelecaoNotas::backCloses()
{
    abre();
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(janela));
}

// --- the supplier

void TestSelecaoNotas::leavingTheCodeShowsTheSupplier()
{
    abre();
    type(janela_, u"txtCodForn"_s, u"2"_s);
    QCOMPARE(text(janela_, u"lblFornecedor"_s), u"BRUNO"_s);
    QCOMPARE(text(janela_, u"txtCodForn"_s), u"0002"_s);
}

void TestSelecaoNotas::anUnknownCodeIsTold_data()
{
    QTest::addColumn<QString>("codigo");
    for (const char *codigo : {"9", "1,5", "1e9", "ABC", "'", "1 OR 1=1", "99999999999"}) {
        QTest::newRow(codigo) << QString::fromLatin1(codigo);
    }
}

/// The name of the supplier before it is taken away: nothing may be shown for a code that is none.
void TestSelecaoNotas::anUnknownCodeIsTold()
{
    QFETCH(const QString, codigo);
    abre();
    type(janela_, u"txtCodForn"_s, u"1"_s);
    caixas_->exclamation(naoLocalizado);
    type(janela_, u"txtCodForn"_s, codigo);
    QCOMPARE(text(janela_, u"lblFornecedor"_s), QString());
    caixas_->exclamation(u"Código do Fornecedor inválido"_s);
    click(janela_, u"btnPreenche"_s);
    QVERIFY(!cadastro::isOpen(u"frmRelatorio"_s));
    QCOMPARE(focusOf(janela_), u"txtCodForn"_s);
    type(janela_, u"txtCodForn"_s, u"1"_s);
}

void TestSelecaoNotas::anUnknownCodeDoesNotKeepTheFocus()
{
    abre();
    caixas_->exclamation(naoLocalizado);
    type(janela_, u"txtCodForn"_s, u"9"_s);
    QCOMPARE(focusOf(janela_), u"btnFornecedorFind"_s);
}

void TestSelecaoNotas::anEmptyCodeIsLeftInSilence()
{
    abre();
    key(janela_, u"txtCodForn"_s, Qt::Key_Tab);
    QCOMPARE(focusOf(janela_), u"btnFornecedorFind"_s);
}

// --- what opens

void TestSelecaoNotas::withoutASupplierNothingOpens_data()
{
    QTest::addColumn<int>("modo");
    QTest::newRow("report") << 0;
    QTest::newRow("query") << int{core::modoConsultaNotasFornecedor};
}

void TestSelecaoNotas::withoutASupplierNothingOpens()
{
    QFETCH(const int, modo);
    abre(modo);
    caixas_->exclamation(u"Código do Fornecedor inválido"_s);
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(focusOf(janela_), u"txtCodForn"_s);
    QVERIFY(!cadastro::isOpen(consulta) && !cadastro::isOpen(u"frmRelatorio"_s));
    QCOMPARE(int{ModoChamada}, modo);
}

void TestSelecaoNotas::aSupplierDeletedMeanwhileIsTold()
{
    abre(core::modoConsultaNotasFornecedor);
    type(janela_, u"txtCodForn"_s, u"2"_s);
    programa_->sql(u"DELETE * FROM Fornecedores WHERE Codigo = 2"_s);
    caixas_->exclamation(naoLocalizado);
    click(janela_, u"btnPreenche"_s);
    QVERIFY(!cadastro::isOpen(consulta));
    QCOMPARE(text(janela_, u"lblFornecedor"_s), QString());
}

void TestSelecaoNotas::theModeOfTheQueryOpensTheQuery()
{
    abre(core::modoConsultaNotasFornecedor);
    type(janela_, u"txtCodForn"_s, u"2"_s);
    click(janela_, u"btnPreenche"_s);
    QVERIFY(cadastro::isOpen(consulta));
    QVERIFY(!cadastro::isOpen(u"frmRelatorio"_s));
    QVERIFY(cadastro::isOpen(janela));
    QCOMPARE(ModoChamada, qint16{core::modoConsultaNotasFornecedor});
}

void TestSelecaoNotas::anyOtherModeOpensTheReport_data()
{
    QTest::addColumn<int>("modo");
    QTest::newRow("menu") << 0;
    QTest::newRow("after a supplier was picked") << 21;
    QTest::newRow("after another window") << 28;
}

void TestSelecaoNotas::anyOtherModeOpensTheReport()
{
    QFETCH(const int, modo);
    abre(modo);
    type(janela_, u"txtCodForn"_s, u"2"_s);
    click(janela_, u"btnPreenche"_s);
    QVERIFY(cadastro::isOpen(u"frmRelatorio"_s));
    QVERIFY(!cadastro::isOpen(consulta));
    QVERIFY(cadastro::isOpen(janela));
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16{core::modoRelaNotasFornecedor});
}

// --- the register

void TestSelecaoNotas::theRegisterHandsTheCodeBack_data()
{
    QTest::addColumn<int>("modo");
    QTest::addColumn<int>("modoDoCadastro");
    QTest::addColumn<bool>("peloTeclado");
    QTest::newRow("query, button") << 34 << 34 << false;
    QTest::newRow("query, F1") << 34 << 34 << true;
    QTest::newRow("report, button") << 0 << 21 << false;
    QTest::newRow("report, F1") << 0 << 21 << true;
}

void TestSelecaoNotas::theRegisterHandsTheCodeBack()
{
    QFETCH(const int, modo);
    QFETCH(const bool, peloTeclado);
    abre(modo);
    if (peloTeclado) {
        key(janela_, u"txtCodForn"_s, Qt::Key_F1);
    } else {
        click(janela_, u"btnFornecedorFind"_s);
    }
    ui::Form *registro = support::show(cadastroFornecedores);
    QTEST(int{ModoChamada}, "modoDoCadastro");
    click(registro, u"btnTodos"_s);
    cadastro::doubleClickRow(registro, 1);
    QTRY_VERIFY(!cadastro::isOpen(cadastroFornecedores));
    QCOMPARE(text(janela_, u"txtCodForn"_s), u"0002"_s);
    QCOMPARE(focusOf(janela_), u"txtCodForn"_s);
    key(janela_, u"txtCodForn"_s, Qt::Key_Tab);
    QCOMPARE(text(janela_, u"lblFornecedor"_s), u"BRUNO"_s);
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(cadastro::isOpen(consulta), modo == 34);
    QCOMPARE(cadastro::isOpen(u"frmRelatorio"_s), modo != 34);
}

void TestSelecaoNotas::anUnknownCodeIsToldAheadOfTheRegister()
{
    abre(core::modoConsultaNotasFornecedor);
    caixas_->exclamation(naoLocalizado);
    type(janela_, u"txtCodForn"_s, u"9"_s, false);
    key(janela_, u"txtCodForn"_s, Qt::Key_F1);
    QVERIFY(cadastro::isOpen(cadastroFornecedores));
    QCOMPARE(ModoChamada, qint16{core::modoConsultaNotasFornecedor});
}

TARVELO_TEST_MAIN(TestSelecaoNotas)
#include "tst_frmRelaSelecaoNotasEntradas.moc"
