#include "core/devolucao.h"
#include "platform/ui/form.h"
#include "registers/frmCadaFast.h"
#include "registers/registers.h"
#include "registers/registro.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/program.h"
#include "workorders/frmOSAbre.h"
#include "workorders/frmOSConsulta.h"
#include "workorders/workorders.h"

#include <QTest>

#include <array>
#include <memory>
#include <set>
#include <span>

using namespace Qt::StringLiterals;
using core::Devolucao;

namespace
{

using Names = std::set<QString>;

/// What makes a window hand something back.
enum class By { Row, Inclusion, Button };

/// A table of hand-backs and the window that it belongs to.
struct Table {
    QString window;
    By by;
    std::span<const Devolucao> rows;
};

std::vector<Table> tables()
{
    std::vector<Table> all;
    for (const registers::Registro *registro : {&registers::registroClientes(), &registers::registroVeiculos(),
                                                &registers::registroPecas(), &registers::registroFornecedores()}) {
        const QString window = registro->janela.toString();
        all.push_back({window, By::Row, registro->devolucoes});
        all.push_back({window, By::Inclusion, registro->devolucoesInclusao});
    }
    all.push_back({u"frmCadaFast"_s, By::Inclusion, registers::frmCadaFast::devolucoes()});
    all.push_back({u"frmOSAbre"_s, By::Inclusion, workorders::frmOSAbre::devolucoes()});
    all.push_back({u"frmOSConsulta"_s, By::Row, workorders::frmOSConsulta::devolucoes()});
    all.push_back({u"frmOSConsulta"_s, By::Button, workorders::frmOSConsulta::devolucoesDoBotao()});
    return all;
}

/// One row as a text that can be compared and read.
QString described(const QString &window, By by, const Devolucao &row)
{
    const QString source =
        row.origem.isEmpty() ? (by == By::Inclusion ? u"new code"_s : u"code"_s) : row.origem.toString();
    return u"%1 in mode %2: %3 to %4 of %5"_s.arg(window).arg(row.modo).arg(source, row.controle, row.janela);
}

/// A hand-back as the windows are meant to do it.
struct Wanted {
    QStringView window;
    By by;
    Devolucao row;
};

constexpr std::array wanted{
    Wanted{u"frmCadaCliente", By::Row, {1, u"frmCadaVeiculos", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Row, {12, u"frmOSOrcaNovo", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Row, {38, u"frmCadaFast", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Row, {39, u"frmOSFormaPagto", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Row, {19, u"frmMoviFiadosConta", u"lblCodigo"}},
    Wanted{u"frmCadaCliente", By::Row, {19, u"frmMoviFiadosConta", u"lblFone", u"txtFone1"}},
    Wanted{u"frmCadaCliente", By::Row, {19, u"frmMoviFiadosConta", u"lblNome", u"txtNome"}},
    Wanted{u"frmCadaCliente", By::Inclusion, {2, u"frmCadaVeiculos", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Inclusion, {4, u"frmCadaVeiculos", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Inclusion, {13, u"frmOSOrcaNovo", u"txtCodCliente"}},
    Wanted{u"frmCadaVeiculos", By::Row, {3, u"frmOSAbre", u"txtCodVeiculo"}},
    Wanted{u"frmCadaVeiculos", By::Inclusion, {4, u"frmOSAbre", u"txtCodVeiculo"}},
    Wanted{u"frmCadaPecas", By::Row, {5, u"frmOSAbre", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Row, {18, u"frmMoviEntradaPeca", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Row, {23, u"frmMoviEstoque", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Inclusion, {2, u"frmOSAbre", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Inclusion, {19, u"frmMoviEntradaPeca", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Inclusion, {22, u"frmMoviEstoque", u"txtCodPeca"}},
    Wanted{u"frmCadaFornecedor", By::Row, {16, u"frmMoviEntradaPeca", u"txtCodFornecedor"}},
    Wanted{u"frmCadaFornecedor", By::Row, {20, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"}},
    Wanted{u"frmCadaFornecedor", By::Row, {21, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"}},
    Wanted{u"frmCadaFornecedor", By::Row, {34, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"}},
    Wanted{u"frmCadaFornecedor", By::Inclusion, {17, u"frmMoviEntradaPeca", u"txtCodFornecedor"}},
    Wanted{u"frmCadaFast", By::Inclusion, {0, u"frmOSAbre", u"txtCodVeiculo"}},
    Wanted{u"frmOSAbre", By::Inclusion, {8, u"frmOSAltera", u"txtCodOS"}},
    Wanted{u"frmOSConsulta", By::Row, {7, u"frmOSAltera", u"txtCodOS"}},
    Wanted{u"frmOSConsulta", By::Row, {40, u"frmNota", u"txtOS"}},
    Wanted{u"frmOSConsulta", By::Button, {0, u"frmOSAltera", u"txtCodOS"}},
};

/// The callers that the program does not have yet: each leaves this list when it comes.
const Names windowsToCome{u"frmOSOrcaNovo"_s, u"frmMoviFiadosConta"_s,          u"frmMoviEntradaPeca"_s,
                          u"frmOSAltera"_s,   u"frmRelaSelecaoNotasEntradas"_s, u"frmNota"_s};

Names describedTables()
{
    Names all;
    for (const Table &table : tables()) {
        for (const Devolucao &row : table.rows) {
            all.insert(described(table.window, table.by, row));
        }
    }
    return all;
}

Names without(const Names &all, const Names &known)
{
    Names left;
    std::ranges::set_difference(all, known, std::inserter(left, left.end()));
    return left;
}

QString joined(const Names &names)
{
    return QStringList(names.begin(), names.end()).join(u'\n');
}

} // namespace

Q_DECLARE_METATYPE(Devolucao)

/// Windows know each other by name only, and the compiler knows none of these names: every row of every table of
/// hand-backs is held against the windows themselves, and against what each mode is for.
class TstDevolucoes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void everyTableHasRows();
    void everyModeIsHandedBack_data();
    void everyModeIsHandedBack();
    void noOtherModeIsHandedBack();
    void everyRowStandsOnce();
    void everyRowNamesControlsThatExist_data();
    void everyRowNamesControlsThatExist();
    void theCallersToComeAreKnown();
    void theAccountOfACustomerGetsTheFocusInItsDate();

private:
    static void compareControl(const QString &window, const QString &control);

    std::unique_ptr<support::Program> program_;
};

void TstDevolucoes::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    stock::registerForms();
    reports::registerForms();
}

void TstDevolucoes::everyTableHasRows()
{
    for (const Table &table : tables()) {
        QVERIFY2(!table.rows.empty(), qPrintable(table.window));
    }
}

void TstDevolucoes::everyModeIsHandedBack_data()
{
    QTest::addColumn<QString>("row");
    for (const Wanted &each : wanted) {
        const QString row = described(each.window.toString(), each.by, each.row);
        QTest::newRow(qPrintable(row)) << row;
    }
}

void TstDevolucoes::everyModeIsHandedBack()
{
    QFETCH(QString, row);
    QVERIFY2(describedTables().contains(row), qPrintable(u"missing: "_s + row));
}

void TstDevolucoes::noOtherModeIsHandedBack()
{
    Names known;
    for (const Wanted &each : wanted) {
        known.insert(described(each.window.toString(), each.by, each.row));
    }
    QCOMPARE(joined(without(describedTables(), known)), QString());
}

void TstDevolucoes::everyRowStandsOnce()
{
    std::size_t rows = 0;
    for (const Table &table : tables()) {
        rows += table.rows.size();
    }
    QCOMPARE(rows, describedTables().size());
}

void TstDevolucoes::everyRowNamesControlsThatExist_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<Devolucao>("row");
    for (const Table &table : tables()) {
        for (const Devolucao &row : table.rows) {
            QTest::newRow(qPrintable(described(table.window, table.by, row))) << table.window << row;
        }
    }
}

void TstDevolucoes::everyRowNamesControlsThatExist()
{
    QFETCH(QString, window);
    QFETCH(Devolucao, row);
    compareControl(window, row.origem.toString());
    if (const QString caller = row.janela.toString(); ui::Forms::instance().exists(caller)) {
        compareControl(caller, row.controle.toString());
        compareControl(caller, row.foco.toString());
    } else {
        QVERIFY2(windowsToCome.contains(caller), qPrintable(u"no window "_s + caller));
    }
}

/// An empty name stands for another control of the row.
void TstDevolucoes::compareControl(const QString &window, const QString &control)
{
    QVERIFY2(ui::Forms::instance().exists(window), qPrintable(window));
    const auto *form = ui::Forms::instance().Load(window);
    QVERIFY2(control.isEmpty() || form->findChild<QWidget *>(control) != nullptr,
             qPrintable(u"no control %1 in %2"_s.arg(control, window)));
}

void TstDevolucoes::theCallersToComeAreKnown()
{
    Names missing;
    for (const Table &table : tables()) {
        for (const Devolucao &row : table.rows) {
            if (const QString caller = row.janela.toString(); !ui::Forms::instance().exists(caller)) {
                missing.insert(caller);
            }
        }
    }
    QCOMPARE(joined(missing), joined(windowsToCome));
}

/// Its code stands in a label.
void TstDevolucoes::theAccountOfACustomerGetsTheFocusInItsDate()
{
    Names focused;
    for (const Table &table : tables()) {
        for (const Devolucao &row : table.rows) {
            const bool account = row.janela == u"frmMoviFiadosConta";
            QVERIFY2(account || row.foco.isEmpty(), qPrintable(described(table.window, table.by, row)));
            if (account) {
                focused.insert(row.foco.toString());
            }
        }
    }
    focused.erase(QString());
    QCOMPARE(joined(focused), u"txtData"_s);
}

TARVELO_TEST_MAIN(TstDevolucoes)
#include "tst_devolucoes.moc"
