#include "tests/stock/notas.h"

#include "core/modulo.h"

#include <QAbstractButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using cadastro::clickRow;
using cadastro::columnOf;
using cadastro::Rows;
using notas::nulo;
using notas::perguntaDia;
using support::control;
using support::key;
using support::text;

namespace
{

const QString janela = u"frmMoviEntradaPecaConsulta"_s;
const QString selecao = u"frmRelaSelecaoNotasEntradas"_s;
constexpr int doRelatorio = 21;
const QString sim = u"True"_s;
const QString nao = u"False"_s;

} // namespace

/// The key P, by which a note is paid and unpaid, and the look at one note from the report.
class TstFrmMoviEntradaPecaConsultaPaga : public notas::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void paysOnTheDayThatIsTyped();
    void offersToday();
    void aRefusedDateLeavesTheNotePaid_data();
    void aRefusedDateLeavesTheNotePaid();
    void aPaidNoteIsUnpaidWithoutAQuestion();
    void thereAndBack();
    void aPaidNoteStaysInTheListOfTheUnpaid();
    void withoutARowNothingHappens();
    void aNoteThatIsGoneLeavesTheList();
    void aNoteDeletedDuringTheQuestionIsNotWritten();

    void worksByTheKeyboardAlone();

    void theReportOpensOnItsNote();
    void theReportsPeriodHolds();
    void theReportsNoteCanOnlyBeLookedAt();
    void theReportsNoteCanBePaid();
    void aNoteOfTheReportThatIsGoneShowsNone();

private:
    void abre(qint32 codigo = 0);
    void teclaP() { key(janela_, u"Lista"_s, Qt::Key_P); }
};

/// With a code as the report opens it.
void TstFrmMoviEntradaPecaConsultaPaga::abre(qint32 codigo)
{
    core::CodigoConsulta = codigo;
    janela_ = cadastro::open(janela, codigo == 0 ? 0 : doRelatorio);
}

void TstFrmMoviEntradaPecaConsultaPaga::paysOnTheDayThatIsTyped()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    clickRow(janela_, 1);
    boxes_->input(perguntaDia, u"13/05/2024"_s);
    teclaP();
    QCOMPARE(marcas(), (Rows{{nao, nulo}, {sim, u"13/05/2024 00:00:00"_s}}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u"Não"_s, u"Sim"_s}));
    QCOMPARE(columnOf(janela_, 5), (QStringList{u""_s, u"13/05/2024"_s}));
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
    QVERIFY(program_->rows(u"SELECT * FROM ContasPagar"_s).empty());
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 1);
}

void TstFrmMoviEntradaPecaConsultaPaga::offersToday()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    teclaP();
    QCOMPARE(marcas(), (Rows{{sim, u"15/05/2024 00:00:00"_s}}));
}

void TstFrmMoviEntradaPecaConsultaPaga::aRefusedDateLeavesTheNotePaid_data()
{
    QTest::addColumn<QString>("resposta");
    QTest::newRow("cancelled") << QString();
    QTest::newRow("a word") << u"AMANHÃ"_s;
    QTest::newRow("a bare number") << u"12"_s;
    QTest::newRow("no such day") << u"32/13/2024"_s;
}

void TstFrmMoviEntradaPecaConsultaPaga::aRefusedDateLeavesTheNotePaid()
{
    QFETCH(const QString, resposta);
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s, false, u"05/12/2024"_s);
    abre();
    for (const int linha : {0, 1}) {
        clickRow(janela_, linha);
        resposta.isEmpty() ? boxes_->inputCancel(perguntaDia) : boxes_->input(perguntaDia, resposta);
        teclaP();
    }
    QCOMPARE(marcas(), (Rows{{sim, nulo}, {sim, u"12/05/2024 00:00:00"_s}}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u"Sim"_s, u"Sim"_s}));
    QCOMPARE(columnOf(janela_, 5), (QStringList{u""_s, u"12/05/2024"_s}));
}

void TstFrmMoviEntradaPecaConsultaPaga::aPaidNoteIsUnpaidWithoutAQuestion()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s, true, u"05/12/2024"_s);
    abre();
    clickRow(janela_, 0);
    teclaP();
    QCOMPARE(marcas(), (Rows{{nao, nulo}}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u"Não"_s}));
    QCOMPARE(columnOf(janela_, 5), (QStringList{u""_s}));
}

void TstFrmMoviEntradaPecaConsultaPaga::thereAndBack()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    clickRow(janela_, 0);
    const Rows antes = cadastro::rowsOf(janela_);
    boxes_->input(perguntaDia, u"13/05/2024"_s);
    teclaP();
    teclaP();
    QCOMPARE(marcas(), (Rows{{nao, nulo}}));
    QCOMPARE(cadastro::rowsOf(janela_), antes);
}

void TstFrmMoviEntradaPecaConsultaPaga::aPaidNoteStaysInTheListOfTheUnpaid()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    cadastro::choose(janela_, u"cboOS"_s, 1);
    clickRow(janela_, 0);
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    teclaP();
    QCOMPARE(columnOf(janela_, 4), (QStringList{u"Sim"_s}));
    support::click(janela_, u"btnTodos"_s);
    QCOMPARE(cadastro::list(janela_)->count(), 0);
}

void TstFrmMoviEntradaPecaConsultaPaga::withoutARowNothingHappens()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s, true);
    abre();
    teclaP();
    QCOMPARE(marcas(), (Rows{{sim, nulo}}));
}

void TstFrmMoviEntradaPecaConsultaPaga::aNoteThatIsGoneLeavesTheList()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    clickRow(janela_, 0);
    program_->sql(u"DELETE * FROM NotasEntradas WHERE Codigo = 1"_s);
    teclaP();
    QCOMPARE(columnOf(janela_), (QStringList{u"0002"_s}));
    QCOMPARE(marcas(), (Rows{{nao, nulo}}));
}

void TstFrmMoviEntradaPecaConsultaPaga::aNoteDeletedDuringTheQuestionIsNotWritten()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    bool excluida = false;
    QTimer::singleShot(0, janela_, [&] {
        program_->sql(u"DELETE * FROM NotasEntradas"_s);
        excluida = true;
    });
    teclaP();
    QVERIFY(excluida);
    QVERIFY(marcas().empty());
    QCOMPARE(cadastro::list(janela_)->count(), 0);
}

void TstFrmMoviEntradaPecaConsultaPaga::worksByTheKeyboardAlone()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    linha(nota(ana, u"05/11/2024"_s, u"2"_s), 0, u"1"_s, u"FRETE"_s, u"2"_s, u"A"_s);
    abre();
    QTest::keyClick(janela_->window()->windowHandle(), Qt::Key_End);
    QCOMPARE(linhas().size(), 1U);
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    QTest::keyClick(janela_->window()->windowHandle(), Qt::Key_P);
    QCOMPARE(marcas(), (Rows{{nao, nulo}, {sim, u"15/05/2024 00:00:00"_s}}));
    boxes_->question(u"Excluir o Registro Selecionado"_s, true);
    QTest::keyClick(janela_->window()->windowHandle(), Qt::Key_X, Qt::AltModifier);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s}));
}

// --- from the report

void TstFrmMoviEntradaPecaConsultaPaga::theReportOpensOnItsNote()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    linha(nota(ana, u"05/11/2024"_s, u"2"_s), 0, u"1"_s, u"FRETE"_s, u"2"_s, u"A"_s);
    nota(ana, u"05/12/2024"_s, u"3"_s);
    abre(2);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 1);
    QCOMPARE(linhas(), (Rows{{u"0000"_s, u"A"_s, u"01"_s, u"FRETE"_s, u"2,00"_s, u"2,00"_s}}));
}

void TstFrmMoviEntradaPecaConsultaPaga::theReportsPeriodHolds()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"01/10/2024"_s, u"1"_s);
    nota(ana, u"05/10/2024"_s, u"2"_s);
    ui::Form *escolha = cadastro::open(selecao);
    support::type(escolha, u"txtDataInicio"_s, u"01012024"_s);
    support::type(escolha, u"txtDataFim"_s, u"31012024"_s);
    abre(1);
    QCOMPARE(text(janela_, u"txtDataInicio"_s), u"01/01/2024"_s);
    QCOMPARE(text(janela_, u"txtDataFim"_s), u"31/01/2024"_s);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s}));
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 0);
    janela_->Unload();
    abre();
    QCOMPARE(text(janela_, u"txtDataInicio"_s), u"15/04/2024"_s);
}

void TstFrmMoviEntradaPecaConsultaPaga::theReportsNoteCanOnlyBeLookedAt()
{
    cadastro::standIn(u"frmMoviEntradaPeca"_s, {u"txtCodFornecedor"_s});
    nota(fornecedor(u"ANA"_s), u"05/11/2024"_s, u"2"_s);
    abre(1);
    for (const QString &fechado :
         {u"btnExcluir"_s, u"btnTodos"_s, u"btnNovo"_s, u"cboOS"_s, u"txtDataInicio"_s, u"txtDataFim"_s}) {
        QVERIFY2(!support::controlOf(janela_, fechado)->isEnabled(), qPrintable(fechado));
    }
    QVERIFY(control<QAbstractButton>(janela_, u"btnOBS"_s)->isEnabled());
    clickRow(janela_, 0);
    QVERIFY(!control<QAbstractButton>(janela_, u"btnExcluir"_s)->isEnabled());
    QCOMPARE(text(janela_, u"cboOS"_s), u"Todas"_s);
}

void TstFrmMoviEntradaPecaConsultaPaga::theReportsNoteCanBePaid()
{
    nota(fornecedor(u"ANA"_s), u"05/11/2024"_s, u"2"_s);
    abre(1);
    boxes_->inputKeep(perguntaDia, u"15/05/2024"_s);
    teclaP();
    QCOMPARE(marcas(), (Rows{{sim, u"15/05/2024 00:00:00"_s}}));
    QCOMPARE(columnOf(janela_, 4), (QStringList{u"Sim"_s}));
}

/// A code of four digits begins others of five.
void TstFrmMoviEntradaPecaConsultaPaga::aNoteOfTheReportThatIsGoneShowsNone()
{
    program_->sql(u"INSERT INTO NotasEntradas (Codigo, CodForn, Data) VALUES (10000, %1, #05/11/2024#)"_s.arg(
        fornecedor(u"ANA"_s)));
    linha(10000, 0, u"1"_s, u"FRETE"_s, u"2"_s, u"A"_s);
    abre(1000);
    QCOMPARE(columnOf(janela_), (QStringList{u"10000"_s}));
    QCOMPARE(cadastro::list(janela_)->selectedRow(), -1);
    QVERIFY(linhas().empty());
    clickRow(janela_, 0);
    QCOMPARE(linhas().size(), 1U);
}

TARVELO_TEST_MAIN(TstFrmMoviEntradaPecaConsultaPaga)
#include "tst_frmMoviEntradaPecaConsulta_paga.moc"
