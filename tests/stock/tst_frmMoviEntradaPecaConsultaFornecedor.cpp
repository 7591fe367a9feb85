#include "tests/stock/notas.h"

#include "core/modulo.h"

#include <QTimer>

using namespace Qt::StringLiterals;
using cadastro::clickRow;
using cadastro::columnOf;
using cadastro::Rows;
using cadastro::rowsOf;
using notas::nulo;
using notas::perguntaDia;
using support::key;
using support::text;

namespace
{

const QString janela = u"frmMoviEntradaPecaConsultaFornecedor"_s;
const QString selecao = u"frmRelaSelecaoNotasEntradas"_s;
constexpr int paraConsulta = 34;
const QString sim = u"True"_s;
const QString nao = u"False"_s;
const QString todasPagas = u"Marcar todos os Registros como Pagos"_s;
const QString nenhumaPaga = u"Marcar todos os Registros como Não Pagos"_s;

/// The entries of `cboPago`.
constexpr int pagos = 0;
constexpr int naoPagos = 1;
constexpr int todos = 2;

} // namespace

/// The notes of one supplier as the selection window tells, their sums, and the check boxes that pay them.
class TstFrmMoviEntradaPecaConsultaFornecedor : public notas::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void showsTheNotesOfTheSupplier();
    void showsTheSituationThatIsChosen_data();
    void showsTheSituationThatIsChosen();
    void thePeriodHolds();
    void withoutNotesABoxSaysSo();
    void theSumsAre32BitsWide();
    void aNoteWithoutAValueCountsNothing();
    void aNoteOfADeletedSupplierIsNotShown();
    void aNewChoiceIsReadWhenItOpensAgain();
    void withoutTheSelectionItIsEmpty();
    void aClickShowsTheLines();
    void tabGoesControlByControl();
    void backCloses();

    void aCheckPays();
    void theBlankKeyChecks();
    void aRefusedDateLeavesTheNotePaid_data();
    void aRefusedDateLeavesTheNotePaid();
    void aClearedCheckUnpays();
    void thereAndBackTheSumsAreTheSame();
    void aNoteThatIsGoneLeavesTheList();
    void aNoteDeletedDuringTheQuestionLeavesTheList();
    void theTotalPaysAllWithoutADate();
    void theTotalUnpaysAllAndLeavesTheDates();
    void aRefusedQuestionTakesTheCheckBack();
    void theTotalPassesOverANoteThatIsGone();
    void theTotalIsFoundWhereverItIsSorted();

private:
    void abre(int situacao = todos, const QString &codigo = u"1"_s);
    void marca(int linha);
    QStringList somas() const;
    std::vector<bool> caixas() const;
};

/// Chooses in the selection window and opens the query from there.
void TstFrmMoviEntradaPecaConsultaFornecedor::abre(int situacao, const QString &codigo)
{
    ui::Form *escolha = cadastro::open(selecao, paraConsulta);
    support::type(escolha, u"txtCodForn"_s, codigo);
    cadastro::choose(escolha, u"cboPago"_s, situacao);
    support::click(escolha, u"btnPreenche"_s);
    janela_ = support::show(janela);
}

/// A click on the check box of a row.
void TstFrmMoviEntradaPecaConsultaFornecedor::marca(int linha)
{
    auto *lista = cadastro::list(janela_);
    const QModelIndex celula = lista->model()->index(linha, 0);
    lista->scrollTo(celula);
    const QRect caixa = lista->visualRect(celula);
    const QPoint lugar(caixa.left() + caixa.height() / 2, caixa.center().y());
    QTest::mouseClick(janela_->window()->windowHandle(), Qt::LeftButton, {},
                      lista->viewport()->mapTo(janela_->window(), lugar));
}

/// All, paid, unpaid.
QStringList TstFrmMoviEntradaPecaConsultaFornecedor::somas() const
{
    return {text(janela_, u"lblTotal"_s), text(janela_, u"lblPagas"_s), text(janela_, u"lblNaoPagas"_s)};
}

std::vector<bool> TstFrmMoviEntradaPecaConsultaFornecedor::caixas() const
{
    std::vector<bool> todas;
    for (int linha = 0; linha < cadastro::list(janela_)->count(); ++linha) {
        todas.push_back(cadastro::list(janela_)->item(linha).checked());
    }
    return todas;
}

// --- the list

void TstFrmMoviEntradaPecaConsultaFornecedor::showsTheNotesOfTheSupplier()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1150.255"_s, true, u"05/12/2024"_s, u"NF 123"_s);
    nota(fornecedor(u"BRUNO"_s), u"05/10/2024"_s, u"7"_s);
    nota(ana, u"05/09/2024"_s, u"10"_s);
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Consulta Notas de Entrada de Fornecedor]"_s);
    QCOMPARE(cadastro::titlesOf(janela_),
             (QStringList{u"Pago"_s, u"Código"_s, u"Data"_s, u"Valor"_s, u"Data Pagto"_s, u"Observações"_s}));
    QCOMPARE(rowsOf(janela_), (Rows{{u"Sim"_s, u"0001"_s, u"10/05/2024"_s, u"1.150,26"_s, u"12/05/2024"_s, u"NF 123"_s},
                                    {u"Não"_s, u"0003"_s, u"09/05/2024"_s, u"10,00"_s, u""_s, u""_s},
                                    {u""_s, u""_s, u"Total: "_s, u"1.160,26"_s, u""_s, u""_s}}));
    QCOMPARE(caixas(), (std::vector{true, false, false}));
    QCOMPARE(somas(), (QStringList{u"1.160,26"_s, u"1.150,26"_s, u"10,00"_s}));
    QCOMPARE(cadastro::focusOf(janela_), u"Lista"_s);
    QVERIFY(cadastro::isOpen(selecao));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::showsTheSituationThatIsChosen_data()
{
    QTest::addColumn<int>("situacao");
    QTest::addColumn<QStringList>("codigos");
    QTest::addColumn<QStringList>("somas");
    QTest::newRow("Pagos") << pagos << QStringList{u"0001"_s, u""_s} << QStringList{u"1,00"_s, u"1,00"_s, u"0,00"_s};
    QTest::newRow("Não Pagos") << naoPagos << QStringList{u"0002"_s, u"0003"_s, u""_s}
                               << QStringList{u"5,00"_s, u"0,00"_s, u"5,00"_s};
    QTest::newRow("Todos") << todos << QStringList{u"0001"_s, u"0002"_s, u"0003"_s, u""_s}
                           << QStringList{u"6,00"_s, u"1,00"_s, u"5,00"_s};
}

void TstFrmMoviEntradaPecaConsultaFornecedor::showsTheSituationThatIsChosen()
{
    QFETCH(const int, situacao);
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s, true);
    nota(ana, u"05/10/2024"_s, u"2"_s);
    nota(ana, u"05/10/2024"_s, u"3"_s);
    abre(situacao);
    QTEST(columnOf(janela_, 1), "codigos");
    QTEST(somas(), "somas");
}

void TstFrmMoviEntradaPecaConsultaFornecedor::thePeriodHolds()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    for (const QString &dia : {u"04/14/2024"_s, u"04/15/2024"_s, u"05/15/2024"_s, u"05/16/2024"_s}) {
        nota(ana, dia, u"1"_s);
    }
    abre();
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"0002"_s, u"0003"_s, u""_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::withoutNotesABoxSaysSo()
{
    fornecedor(u"ANA"_s);
    boxes_->exclamation(u"Nenhum Registro Localizado com sua pesquisa"_s);
    abre();
    QCOMPARE(cadastro::list(janela_)->count(), 0);
    QCOMPARE(somas(), (QStringList{u"0,00"_s, u"0,00"_s, u"0,00"_s}));
}

/// Each addition is rounded to the seven digits of the column.
void TstFrmMoviEntradaPecaConsultaFornecedor::theSumsAre32BitsWide()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1000000"_s, true);
    for (int vez = 0; vez < 10; ++vez) {
        nota(ana, u"05/10/2024"_s, u"0.03"_s, true);
    }
    abre();
    QCOMPARE(somas(), (QStringList{u"1.000.000,00"_s, u"1.000.000,00"_s, u"0,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aNoteWithoutAValueCountsNothing()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"Null"_s);
    abre();
    QCOMPARE(somas(), (QStringList{u"0,00"_s, u"0,00"_s, u"0,00"_s}));
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    marca(0);
    QCOMPARE(somas(), (QStringList{u"0,00"_s, u"0,00"_s, u"0,00"_s}));
    QCOMPARE(columnOf(janela_, 0).front(), u"Sim"_s);
}

/// The selection window knows no such supplier, so the query never asks for his notes.
void TstFrmMoviEntradaPecaConsultaFornecedor::aNoteOfADeletedSupplierIsNotShown()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    program_->sql(u"DELETE * FROM Fornecedores"_s);
    ui::Form *escolha = cadastro::open(selecao, paraConsulta);
    boxes_->exclamation(u"Código do Fornecedor não localizado"_s).exclamation(u"Código do Fornecedor inválido"_s);
    support::type(escolha, u"txtCodForn"_s, u"1"_s);
    support::click(escolha, u"btnPreenche"_s);
    QVERIFY(!cadastro::isOpen(janela));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aNewChoiceIsReadWhenItOpensAgain()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    nota(fornecedor(u"BRUNO"_s), u"05/10/2024"_s, u"2"_s);
    abre();
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"0001"_s, u""_s}));
    abre(todos, u"2"_s);
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"0002"_s, u""_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::withoutTheSelectionItIsEmpty()
{
    janela_ = cadastro::open(janela, paraConsulta);
    QCOMPARE(cadastro::list(janela_)->count(), 0);
    QVERIFY(!cadastro::isOpen(selecao));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aClickShowsTheLines()
{
    constexpr int litros = 2;
    const qint32 oleo = program_->part(u"ÓLEO"_s, u"P"_s, u"30"_s, false, litros);
    linha(nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s), oleo, u"2"_s, u"ÓLEO"_s, u"15.5"_s);
    abre();
    clickRow(janela_, 0);
    const Rows mostradas{{u"0001"_s, u"P"_s, u"2,000"_s, u"ÓLEO"_s, u"15,50"_s, u"31,00"_s}};
    QCOMPARE(linhas(), mostradas);
    clickRow(janela_, 1);
    QCOMPARE(linhas(), mostradas);
}

void TstFrmMoviEntradaPecaConsultaFornecedor::tabGoesControlByControl()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    const QStringList ordem{u"Lista"_s, u"lstPecas"_s, u"btnPreVisualizar"_s, u"btnPrint"_s, u"btnVoltar"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"Lista"_s, ordem.size()), ordem);
}

void TstFrmMoviEntradaPecaConsultaFornecedor::backCloses()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    support::click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(janela));
    QVERIFY(cadastro::isOpen(selecao));
}

// --- one note

void TstFrmMoviEntradaPecaConsultaFornecedor::aCheckPays()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1.5"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    boxes_->input(perguntaDia, u"13/05/2024 10:00"_s);
    marca(1);
    QCOMPARE(marcas(), (Rows{{nao, nulo}, {sim, u"13/05/2024 00:00:00"_s}}));
    QCOMPARE(columnOf(janela_, 0), (QStringList{u"Não"_s, u"Sim"_s, u""_s}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u""_s, u"13/05/2024"_s, u""_s}));
    QCOMPARE(caixas(), (std::vector{false, true, false}));
    QCOMPARE(somas(), (QStringList{u"3,50"_s, u"2,00"_s, u"1,50"_s}));
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
    QVERIFY(program_->rows(u"SELECT * FROM ContasPagar"_s).empty());
}

void TstFrmMoviEntradaPecaConsultaFornecedor::theBlankKeyChecks()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"2"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    key(janela_, u"Lista"_s, Qt::Key_Space);
    QCOMPARE(marcas(), (Rows{{sim, u"15/05/2024 00:00:00"_s}}));
    key(janela_, u"Lista"_s, Qt::Key_Space);
    QCOMPARE(marcas(), (Rows{{nao, nulo}}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aRefusedDateLeavesTheNotePaid_data()
{
    QTest::addColumn<QString>("resposta");
    QTest::newRow("cancelled") << QString();
    QTest::newRow("a word") << u"AMANHÃ"_s;
    QTest::newRow("a bare number") << u"12"_s;
    QTest::newRow("no such day") << u"32/13/2024"_s;
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aRefusedDateLeavesTheNotePaid()
{
    QFETCH(const QString, resposta);
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s, false, u"05/12/2024"_s);
    abre();
    for (const int linha : {0, 1}) {
        resposta.isEmpty() ? boxes_->inputCancel(perguntaDia) : boxes_->input(perguntaDia, resposta);
        marca(linha);
    }
    QCOMPARE(marcas(), (Rows{{sim, nulo}, {sim, u"12/05/2024 00:00:00"_s}}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u""_s, u"12/05/2024"_s, u""_s}));
    QCOMPARE(somas(), (QStringList{u"3,00"_s, u"3,00"_s, u"0,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aClearedCheckUnpays()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s, true, u"05/12/2024"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s, true);
    abre();
    marca(0);
    QCOMPARE(marcas(), (Rows{{nao, nulo}, {sim, nulo}}));
    QCOMPARE(columnOf(janela_, 0), (QStringList{u"Não"_s, u"Sim"_s, u""_s}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u" "_s, u""_s, u""_s}));
    QCOMPARE(somas(), (QStringList{u"3,00"_s, u"2,00"_s, u"1,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::thereAndBackTheSumsAreTheSame()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1234.56"_s);
    nota(ana, u"05/11/2024"_s, u"0.01"_s, true);
    abre();
    const QStringList antes = somas();
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    marca(0);
    QCOMPARE(somas(), (QStringList{u"1.234,57"_s, u"1.234,57"_s, u"0,00"_s}));
    marca(0);
    QCOMPARE(somas(), antes);
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aNoteThatIsGoneLeavesTheList()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s, true);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    program_->sql(u"DELETE * FROM NotasEntradas WHERE Codigo = 1"_s);
    marca(0);
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"0002"_s, u""_s}));
    QCOMPARE(somas(), (QStringList{u"2,00"_s, u"0,00"_s, u"2,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aNoteDeletedDuringTheQuestionLeavesTheList()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    QTimer::singleShot(0, janela_, [this] { program_->sql(u"DELETE * FROM NotasEntradas WHERE Codigo = 1"_s); });
    marca(0);
    QCOMPARE(marcas(), (Rows{{nao, nulo}}));
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"0002"_s, u""_s}));
}

// --- all of them

void TstFrmMoviEntradaPecaConsultaFornecedor::theTotalPaysAllWithoutADate()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s, true);
    nota(ana, u"05/12/2024"_s, u"3"_s);
    nota(fornecedor(u"BRUNO"_s), u"05/12/2024"_s, u"4"_s);
    abre();
    boxes_->question(todasPagas, true);
    marca(3);
    QCOMPARE(marcas(), (Rows{{sim, nulo}, {sim, nulo}, {sim, nulo}, {nao, nulo}}));
    QCOMPARE(columnOf(janela_, 0), (QStringList{u"Sim"_s, u"Sim"_s, u"Sim"_s, u""_s}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u""_s, u""_s, u""_s, u""_s}));
    QCOMPARE(caixas(), (std::vector{true, true, true, true}));
    QCOMPARE(somas(), (QStringList{u"6,00"_s, u"6,00"_s, u"0,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::theTotalUnpaysAllAndLeavesTheDates()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s, true, u"05/11/2024"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    boxes_->question(todasPagas, true).question(nenhumaPaga, true);
    marca(2);
    marca(2);
    QCOMPARE(marcas(), (Rows{{nao, u"11/05/2024 00:00:00"_s}, {nao, nulo}}));
    QCOMPARE(columnOf(janela_, 0), (QStringList{u"Não"_s, u"Não"_s, u""_s}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u"11/05/2024"_s, u""_s, u""_s}));
    QCOMPARE(caixas(), (std::vector{false, false, false}));
    QCOMPARE(somas(), (QStringList{u"3,00"_s, u"0,00"_s, u"3,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::aRefusedQuestionTakesTheCheckBack()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    boxes_->question(todasPagas, false);
    marca(1);
    QCOMPARE(caixas(), (std::vector{false, false}));
    QCOMPARE(marcas(), (Rows{{nao, nulo}}));
    QCOMPARE(somas(), (QStringList{u"1,00"_s, u"0,00"_s, u"1,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedor::theTotalPassesOverANoteThatIsGone()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    program_->sql(u"DELETE * FROM NotasEntradas WHERE Codigo = 1"_s);
    boxes_->question(todasPagas, true);
    marca(2);
    QCOMPARE(marcas(), (Rows{{sim, nulo}}));
    QCOMPARE(somas().at(1), u"2,00"_s);
}

void TstFrmMoviEntradaPecaConsultaFornecedor::theTotalIsFoundWhereverItIsSorted()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    cadastro::clickHeader(janela_, 1);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"Total: "_s, u"10/05/2024"_s}));
    boxes_->question(todasPagas, true);
    marca(0);
    QCOMPARE(marcas(), (Rows{{sim, nulo}}));
    QCOMPARE(caixas(), (std::vector{true, true}));
}

TARVELO_TEST_MAIN(TstFrmMoviEntradaPecaConsultaFornecedor)
#include "tst_frmMoviEntradaPecaConsultaFornecedor.moc"
