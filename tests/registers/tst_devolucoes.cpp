#include "core/devolucao.h"
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/program.h"
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

using By = core::Ocasiao;

/// A table of hand-backs and the window that it belongs to.
struct Table {
    QString window;
    By by;
    std::span<const Devolucao> rows;
};

/// All that the windows were made known with.
std::vector<Table> tables()
{
    std::vector<Table> all;
    for (const QString &window : ui::Forms::instance().names()) {
        for (const core::Devolucoes &each : core::DevolucoesDe(window)) {
            all.push_back({window, each.ocasiao, each.linhas});
        }
    }
    return all;
}

/// One row as a text that can be compared and read.
QString described(const QString &window, By by, const Devolucao &row)
{
    const QString source =
        row.origem.isEmpty() ? (by == By::Inclusao ? u"new code"_s : u"code"_s) : row.origem.toString();
    return u"%1 in mode %2: %3 to %4 of %5"_s.arg(window).arg(row.modo).arg(source, row.controle, row.janela);
}

/// A hand-back as the windows are meant to do it.
struct Wanted {
    QStringView window;
    By by;
    Devolucao row;
};

constexpr std::array wanted{
    Wanted{u"frmCadaCliente", By::Escolha, {1, u"frmCadaVeiculos", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Escolha, {12, u"frmOSOrcaNovo", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Escolha, {38, u"frmCadaFast", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Escolha, {39, u"frmOSFormaPagto", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Escolha, {19, u"frmMoviFiadosConta", u"lblCodigo"}},
    Wanted{u"frmCadaCliente", By::Escolha, {19, u"frmMoviFiadosConta", u"lblFone", u"txtFone1"}},
    Wanted{u"frmCadaCliente", By::Escolha, {19, u"frmMoviFiadosConta", u"lblNome", u"txtNome"}},
    Wanted{u"frmCadaCliente", By::Inclusao, {2, u"frmCadaVeiculos", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Inclusao, {4, u"frmCadaVeiculos", u"txtCodCliente"}},
    Wanted{u"frmCadaCliente", By::Inclusao, {13, u"frmOSOrcaNovo", u"txtCodCliente"}},
    Wanted{u"frmCadaVeiculos", By::Escolha, {3, u"frmOSAbre", u"txtCodVeiculo"}},
    Wanted{u"frmCadaVeiculos", By::Inclusao, {4, u"frmOSAbre", u"txtCodVeiculo"}},
    Wanted{u"frmCadaPecas", By::Escolha, {5, u"frmOSAbre", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Escolha, {18, u"frmMoviEntradaPeca", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Escolha, {23, u"frmMoviEstoque", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Inclusao, {2, u"frmOSAbre", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Inclusao, {19, u"frmMoviEntradaPeca", u"txtCodPeca"}},
    Wanted{u"frmCadaPecas", By::Inclusao, {22, u"frmMoviEstoque", u"txtCodPeca"}},
    Wanted{u"frmCadaFornecedor", By::Escolha, {16, u"frmMoviEntradaPeca", u"txtCodFornecedor"}},
    Wanted{u"frmCadaFornecedor", By::Escolha, {20, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"}},
    Wanted{u"frmCadaFornecedor", By::Escolha, {21, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"}},
    Wanted{u"frmCadaFornecedor", By::Escolha, {34, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"}},
    Wanted{u"frmCadaFornecedor", By::Inclusao, {17, u"frmMoviEntradaPeca", u"txtCodFornecedor"}},
    Wanted{u"frmCadaFast", By::Inclusao, {0, u"frmOSAbre", u"txtCodVeiculo"}},
    Wanted{u"frmOSAbre", By::Inclusao, {8, u"frmOSAltera", u"txtCodOS"}},
    Wanted{u"frmOSConsulta", By::Escolha, {7, u"frmOSAltera", u"txtCodOS"}},
    Wanted{u"frmOSConsulta", By::Escolha, {40, u"frmNota", u"txtOS"}},
    Wanted{u"frmOSConsulta", By::Botao, {0, u"frmOSAltera", u"txtCodOS"}},
    Wanted{u"frmOSOrcaConsulta", By::Escolha, {14, u"frmOSOrcaAltera", u"txtCodOrcamento"}},
    Wanted{u"frmOSOrcaConsulta", By::Botao, {0, u"frmOSOrcaAltera", u"txtCodOrcamento"}},
    Wanted{u"frmOSOrcaConsulta", By::Preenchimento, {0, u"frmOSAbre", u"lblTotal", u"lblValor"}},
    Wanted{u"frmOSAbre", By::Preenchimento, {0, u"frmCadaFast", u"txtPlaca", u"txtCodVeiculo"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"lblCodigo", u"lblCodigo"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"lblValor", u"lblValor"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"lblTotal", u"lblValor"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"txtValor_0", u"lblValor"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"lblMarca", u"lblMarca"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"lblNome", u"lblNome"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"lblPlacas", u"lblPlacas"}},
    Wanted{u"frmOSConsulta", By::Preenchimento, {0, u"frmOSFormaPagto", u"lblAno", u"lblAno"}},
    Wanted{u"frmOSFormaPagto", By::Preenchimento, {0, u"frmOSConsulta", u"lblDataOut"}},
    Wanted{u"frmMoviContasPR", By::Preenchimento, {0, u"frmMoviContasPRBaixa", u"lblData"}},
    Wanted{u"frmMoviContasPR", By::Preenchimento, {0, u"frmMoviContasPRBaixa", u"lblVencimento"}},
    Wanted{u"frmMoviContasPR", By::Preenchimento, {0, u"frmMoviContasPRBaixa", u"lblDescricao"}},
    Wanted{u"frmMoviContasPR", By::Preenchimento, {0, u"frmMoviContasPRBaixa", u"lblValor"}},
    Wanted{u"frmMoviContasPR", By::Preenchimento, {0, u"frmMoviContasPRBaixa", u"lblCodOS"}},
    Wanted{u"frmMoviContasPR", By::Preenchimento, {0, u"frmMoviContasPRBaixa", u"lblCodCliente"}},
    Wanted{u"frmMoviContasPR", By::Preenchimento, {0, u"frmMoviContasPRBaixa", u"lblNome"}},
};

/// The callers that the program does not have yet: each leaves this list when it comes.
const Names windowsToCome{};

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
    void aNameThatDoesNotExistIsFound_data();
    void aNameThatDoesNotExistIsFound();
    void theCallersToComeAreKnown();
    void theAccountOfACustomerGetsTheFocusInItsDate();

private:
    static QString unknownNameIn(const QString &window, const Devolucao &row);
    static QString unknownControl(const QString &window, const QString &control);

    std::unique_ptr<support::Program> program_;
};

void TstDevolucoes::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
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
    QCOMPARE(unknownNameIn(window, row), QString());
}

void TstDevolucoes::aNameThatDoesNotExistIsFound_data()
{
    QTest::addColumn<Devolucao>("row");
    QTest::addColumn<QString>("told");
    QTest::newRow("window") << Devolucao{3, u"frmOSAbra", u"txtCodVeiculo"} << u"no window frmOSAbra"_s;
    QTest::newRow("control") << Devolucao{3, u"frmOSAbre", u"txtVeiculo"} << u"no control txtVeiculo in frmOSAbre"_s;
    QTest::newRow("origin") << Devolucao{3, u"frmOSAbre", u"txtCodVeiculo", u"txtFone"}
                            << u"no control txtFone in frmCadaVeiculos"_s;
    QTest::newRow("focus") << Devolucao{3, u"frmOSAbre", u"txtCodVeiculo", {}, u"txtFoco"}
                           << u"no control txtFoco in frmOSAbre"_s;
}

void TstDevolucoes::aNameThatDoesNotExistIsFound()
{
    QFETCH(Devolucao, row);
    QFETCH(QString, told);
    QCOMPARE(unknownNameIn(u"frmCadaVeiculos"_s, row), told);
}

/// "" where all names of a window's row exist, or belong to a window that is to come.
QString TstDevolucoes::unknownNameIn(const QString &window, const Devolucao &row)
{
    const QString caller = row.janela.toString();
    if (!ui::Forms::instance().exists(caller)) {
        return windowsToCome.contains(caller) ? QString() : u"no window "_s + caller;
    }
    const QStringList unknown{unknownControl(window, row.origem.toString()),
                              unknownControl(caller, row.controle.toString()),
                              unknownControl(caller, row.foco.toString())};
    return unknown.join(QString());
}

/// An empty name stands for another control of the row.
QString TstDevolucoes::unknownControl(const QString &window, const QString &control)
{
    const auto *form = ui::Forms::instance().Load(window);
    const bool known = control.isEmpty() || form->findChild<QWidget *>(control) != nullptr;
    return known ? QString() : u"no control %1 in %2"_s.arg(control, window);
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
