#include "core/combos.h"
#include "core/funcoes.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"
#include "tests/finance/livroorigem.h"

using namespace Qt::StringLiterals;
using livroorigem::Linhas;
using support::click;
using support::key;
using support::text;
using support::type;

namespace
{

const QString zero = u"0,00"_s;
const QString hoje = u"15/05/2024 00:00:00"_s;
const QString excluir = u"Excluir o Registro Selecionado"_s;
const Linhas semRegistros{
    {QString(), QString(), u"Registro Não Localizado"_s, QString(), QString(), QString(), QString()}};
const QStringList caixas{u"txtData"_s,   u"txtOrigem"_s, u"txtDinheiro"_s,
                         u"txtAvista"_s, u"txtAPrazo"_s, u"txtDuplicata"_s};

} // namespace

/// The origin book: a list of rows entered by hand.
class TstFrmMoviLivroOrigem : public livroorigem::Caso
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    // The list
    void opensWithItsCaptionPeriodAndColumns();
    void showsTheRowsOfThePeriodAndTheirTotal();
    void thePeriodCountsByDays();
    void sumsIn32Bits();
    void anEmptyPeriodSaysSoWithoutATotal();
    void aRowWithoutAmountsShowsThemEmpty();
    void aHeaderSortsAndTurnsRound();

    // The boxes
    void tabGoesFieldByField();
    void theDateIsMaskedAndF1PutsToday();
    void theAmountsTakeDigitsAndAreMasked_data();
    void theAmountsTakeDigitsAndAreMasked();
    void theOriginTakesWhatItsColumnHolds();
    void aClickCopiesTheRowIntoTheBoxes();
    void theTotalRowLeavesTheLastCode();

    // Adding
    void addsARowAndEmptiesTheBoxes();
    void emptyAmountsAreStoredAsZeros();
    void amountsThatAreNoNumberAreZeros();
    void refusesABadRow_data();
    void refusesABadRow();
    void anApostropheIsPartOfTheOrigin();
    void aPastDateIsNoFault();
    void postsNowhereElse();

    // Changing
    void changesTheClickedRow();
    void aChangeStoresEmptyAmountsAsZeros();
    void refusesABadChange_data();
    void refusesABadChange();
    void aRowThatIsGoneIsNotLocated();
    void withNothingClickedNothingIsChangedOrDeleted();

    // Deleting
    void deletingTakesTheCompletionListAndLeavesTheBook();
    void deletesNothingOnNo();
    void aSecondDeleteAsksAgain();
    void everybodyMayChangeAndDelete();
    void backCloses();

private:
    void preenche(const QString &data, const QString &origem, const QStringList &valores);
    QStringList nasCaixas() const;
    void entrada(core::ListaCombo lista, const QString &texto);
    Linhas combos() const { return programa_->rows(u"SELECT Codigo, Texto FROM Combos ORDER BY Codigo, Texto"_s); }
};

void TstFrmMoviLivroOrigem::preenche(const QString &data, const QString &origem, const QStringList &valores)
{
    const QStringList textos = QStringList{data, origem} + valores;
    for (qsizetype i = 0; i < textos.size(); ++i) {
        type(janela_, caixas.at(i), textos.at(i));
    }
}

QStringList TstFrmMoviLivroOrigem::nasCaixas() const
{
    QStringList textos;
    for (const QString &caixa : caixas) {
        textos << text(janela_, caixa);
    }
    return textos;
}

void TstFrmMoviLivroOrigem::entrada(core::ListaCombo lista, const QString &texto)
{
    programa_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (%1, '%2')"_s.arg(int(lista)).arg(texto));
}

// --- the list

void TstFrmMoviLivroOrigem::opensWithItsCaptionPeriodAndColumns()
{
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Livro de Origem]"_s);
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataInicio"_s)->date(), QDate(2024, 4, 15));
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataFim"_s)->date(), QDate(2024, 5, 15));
    QCOMPARE(cadastro::titlesOf(janela_), (QStringList{u"Código"_s, u"Data"_s, u"Origem"_s, u"Dinheiro"_s,
                                                       u"Cheque A V."_s, u"Cheque Pré"_s, u"Duplicata"_s}));
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
    for (const QString &oculto : {u"lblCodigo"_s, u"lblPrint"_s}) {
        QVERIFY(!support::controlOf(janela_, oculto)->isVisible());
    }
}

void TstFrmMoviLivroOrigem::showsTheRowsOfThePeriodAndTheirTotal()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"120.65, 0, 1000, 0.1"_s);
    linha(u"05/02/2024"_s, u"OFICINA"_s, u"1879.35, 75, 110.03, 34.5"_s);
    abre(); // in the order of their codes
    QCOMPARE(cadastro::rowsOf(janela_),
             (Linhas{{u"0001"_s, u"14/05/2024"_s, u"BALCÃO"_s, u"120,65"_s, zero, u"1.000,00"_s, u"0,10"_s},
                     {u"0002"_s, u"02/05/2024"_s, u"OFICINA"_s, u"1.879,35"_s, u"75,00"_s, u"110,03"_s, u"34,50"_s},
                     {QString(), QString(), u"Total:"_s, u"2.000,00"_s, u"75,00"_s, u"1.110,03"_s, u"34,60"_s}}));
    QCOMPARE(cadastro::list(janela_)->model()->headerData(3, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
                 Qt::AlignRight,
             int{Qt::AlignRight});
}

void TstFrmMoviLivroOrigem::thePeriodCountsByDays()
{
    for (const QString &dia : {u"04/14/2024"_s, u"04/15/2024"_s, u"05/15/2024"_s, u"05/16/2024"_s}) {
        linha(dia, u"X"_s, u"1, 0, 0, 0"_s);
    }
    abre();
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0002"_s, u"0003"_s, QString()}));
    type(janela_, u"txtDataInicio"_s, u"16052024"_s);
    type(janela_, u"txtDataFim"_s, u"16062024"_s);
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0002"_s, u"0003"_s, QString()}));
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0004"_s, QString()}));
}

void TstFrmMoviLivroOrigem::sumsIn32Bits()
{
    constexpr int registros = 1000;
    constexpr float valor = 12345.67F;
    float total = 0;
    {
        const dao::Unit lote;
        for (int i = 0; i < registros; ++i) {
            linha(u"05/14/2024"_s, u"X"_s, u"0, 12345.67, 0, 0"_s);
            total += valor;
        }
    }
    const QString somado = runtime::Format(total, core::mascaraValor);
    QVERIFY(somado != runtime::Format(double{valor} * registros, core::mascaraValor));
    abre();
    QCOMPARE(cadastro::rowsOf(janela_).back(),
             (QStringList{QString(), QString(), u"Total:"_s, zero, somado, zero, zero}));
}

void TstFrmMoviLivroOrigem::anEmptyPeriodSaysSoWithoutATotal()
{
    linha(u"03/14/2024"_s, u"X"_s, u"1, 0, 0, 0"_s);
    abre();
    QCOMPARE(cadastro::rowsOf(janela_), semRegistros);
    cadastro::clickRow(janela_, 0);
    QCOMPARE(text(janela_, u"lblCodigo"_s), QString());
}

void TstFrmMoviLivroOrigem::aRowWithoutAmountsShowsThemEmpty()
{
    linha(u"05/14/2024"_s, u"X"_s, u"Null, Null, 5, Null"_s);
    abre();
    QCOMPARE(cadastro::rowsOf(janela_).front().mid(3), (QStringList{QString(), QString(), u"5,00"_s, QString()}));
    QCOMPARE(cadastro::rowsOf(janela_).back().mid(3), (QStringList{zero, zero, u"5,00"_s, zero}));
}

void TstFrmMoviLivroOrigem::aHeaderSortsAndTurnsRound()
{
    linha(u"05/14/2024"_s, u"OFICINA"_s, u"1, 0, 0, 0"_s);
    linha(u"05/13/2024"_s, u"BALCÃO"_s, u"2, 0, 0, 0"_s);
    abre();
    cadastro::clickHeader(janela_, 2);
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"BALCÃO"_s, u"OFICINA"_s, u"Total:"_s}));
    cadastro::clickHeader(janela_, 2);
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"Total:"_s, u"OFICINA"_s, u"BALCÃO"_s}));
}

// --- the boxes

void TstFrmMoviLivroOrigem::tabGoesFieldByField()
{
    abre();
    const QStringList ordem =
        caixas + QStringList{u"btnIncluir"_s,       u"btnAlterar"_s, u"btnExcluir"_s,  u"btnVoltar"_s,
                             u"txtDataInicio"_s,    u"txtDataFim"_s, u"btnPreenche"_s, u"Lista"_s,
                             u"btnPrevisualizar"_s, u"btnPrint"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"txtData"_s, ordem.size()), ordem);
}

void TstFrmMoviLivroOrigem::theDateIsMaskedAndF1PutsToday()
{
    abre();
    type(janela_, u"txtData"_s, u"a0205/2024"_s);
    QCOMPARE(text(janela_, u"txtData"_s), u"02/05/2024"_s);
    key(janela_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(janela_, u"txtData"_s), u"15/05/2024"_s);
}

void TstFrmMoviLivroOrigem::theAmountsTakeDigitsAndAreMasked_data()
{
    QTest::addColumn<QString>("digitado");
    QTest::addColumn<QString>("mostrado");
    QTest::newRow("a number") << u"1234,5"_s << u"1.234,50"_s;
    QTest::newRow("a point") << u"1.234"_s << u"1.234,00"_s;
    QTest::newRow("letters") << u"1e3x"_s << u"13,00"_s;
    QTest::newRow("no number") << u",,"_s << u",,"_s;
    QTest::newRow("nothing") << QString() << QString();
}

void TstFrmMoviLivroOrigem::theAmountsTakeDigitsAndAreMasked()
{
    QFETCH(const QString, digitado);
    abre();
    for (const QString &caixa : caixas.mid(2)) {
        type(janela_, caixa, digitado);
        QTEST(text(janela_, caixa), "mostrado");
    }
}

void TstFrmMoviLivroOrigem::theOriginTakesWhatItsColumnHolds()
{
    abre();
    cadastro::paste(janela_, u"txtOrigem"_s, QString(150, u'A'));
    QCOMPARE(text(janela_, u"txtOrigem"_s).size(), 100);
}

void TstFrmMoviLivroOrigem::aClickCopiesTheRowIntoTheBoxes()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    linha(u"05/13/2024"_s, u"OFICINA"_s, u"1234.5, 0, 0, Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    QCOMPARE(nasCaixas(), (QStringList{u"14/05/2024"_s, u"BALCÃO"_s, u"1,00"_s, u"2,00"_s, u"3,00"_s, u"4,00"_s}));
    cadastro::clickRow(janela_, 1);
    QCOMPARE(nasCaixas(), (QStringList{u"13/05/2024"_s, u"OFICINA"_s, u"1.234,50"_s, zero, zero, QString()}));
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0002"_s);
    key(janela_, u"Lista"_s, Qt::Key_Up);
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(janela_, u"txtOrigem"_s), u"BALCÃO"_s);
}

void TstFrmMoviLivroOrigem::theTotalRowLeavesTheLastCode()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    cadastro::clickRow(janela_, 1);
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(janela_, u"txtOrigem"_s), u"BALCÃO"_s);
}

// --- adding

void TstFrmMoviLivroOrigem::addsARowAndEmptiesTheBoxes()
{
    abre();
    preenche(u"14052024"_s, u"balcão"_s, {u"1234,5"_s, u"2"_s, u"3,33"_s, u"0,1"_s});
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(livro(),
             (Linhas{{u"1"_s, u"14/05/2024 00:00:00"_s, u"BALCÃO"_s, u"1234.5"_s, u"2"_s, u"3.33"_s, u"0.1"_s}}));
    QCOMPARE(nasCaixas().join(QString()), QString());
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"BALCÃO"_s, u"Total:"_s}));
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
    caixas_->exclamation(u"Data Inválida"_s); // a second press finds the boxes empty
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(livro().size(), 1U);
}

void TstFrmMoviLivroOrigem::emptyAmountsAreStoredAsZeros()
{
    abre();
    preenche(u"15052024"_s, u"x"_s, {QString(), QString(), QString(), QString()});
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(livro(), (Linhas{{u"1"_s, hoje, u"X"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}}));
}

void TstFrmMoviLivroOrigem::amountsThatAreNoNumberAreZeros()
{
    abre();
    preenche(u"15052024"_s, u"x"_s, {u",,"_s, u"5"_s, u"."_s, u"1,2,3"_s});
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(livro(), (Linhas{{u"1"_s, hoje, u"X"_s, u"0"_s, u"5"_s, u"0"_s, u"0"_s}}));
}

void TstFrmMoviLivroOrigem::refusesABadRow_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("origem");
    QTest::addColumn<QString>("mensagem");
    QTest::addColumn<QString>("foco");
    QTest::newRow("no date") << QString() << u"X"_s << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("a day that is none") << u"31022024"_s << u"X"_s << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("no origin") << u"15052024"_s << QString() << u"Origem Inválida"_s << u"txtOrigem"_s;
    QTest::newRow("nothing at all") << QString() << QString() << u"Data Inválida"_s << u"txtData"_s;
}

void TstFrmMoviLivroOrigem::refusesABadRow()
{
    QFETCH(const QString, data);
    QFETCH(const QString, origem);
    QFETCH(const QString, mensagem);
    abre();
    preenche(data, origem, {u"1"_s, QString(), QString(), QString()});
    caixas_->exclamation(mensagem);
    click(janela_, u"btnIncluir"_s);
    QVERIFY(livro().empty());
    QTEST(cadastro::focusOf(janela_), "foco");
    QCOMPARE(text(janela_, u"txtAvista"_s), QString());
}

void TstFrmMoviLivroOrigem::anApostropheIsPartOfTheOrigin()
{
    abre();
    preenche(u"15052024"_s, u"d'ávila"_s, {u"1"_s, QString(), QString(), QString()});
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(livro().front().at(2), u"D'ÁVILA"_s);
}

void TstFrmMoviLivroOrigem::aPastDateIsNoFault()
{
    abre();
    preenche(u"15052014"_s, u"x"_s, {u"1"_s, QString(), QString(), QString()});
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(livro().front().at(1), u"15/05/2014 00:00:00"_s);
    QCOMPARE(cadastro::rowsOf(janela_), semRegistros);
}

void TstFrmMoviLivroOrigem::postsNowhereElse()
{
    abre();
    preenche(u"15052024"_s, u"x"_s, {u"1"_s, u"2"_s, u"3"_s, u"4"_s});
    click(janela_, u"btnIncluir"_s);
    for (const QString &tabela : {u"Caixa"_s, u"Banco1"_s, u"Banco2"_s, u"Cheques"_s, u"ContasReceber"_s}) {
        QVERIFY2(programa_->rows(u"SELECT * FROM "_s + tabela).empty(), qPrintable(tabela));
    }
}

// --- changing

void TstFrmMoviLivroOrigem::changesTheClickedRow()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    linha(u"05/13/2024"_s, u"OFICINA"_s, u"5, 6, 7, 8"_s);
    abre();
    cadastro::clickRow(janela_, 1);
    preenche(u"10052024"_s, u"garagem"_s, {u"0,5"_s, u"1"_s, u"2"_s, u"3"_s});
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(livro(), (Linhas{{u"1"_s, u"14/05/2024 00:00:00"_s, u"BALCÃO"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s},
                              {u"2"_s, u"10/05/2024 00:00:00"_s, u"GARAGEM"_s, u"0.5"_s, u"1"_s, u"2"_s, u"3"_s}}));
    QCOMPARE(cadastro::rowsOf(janela_).at(1).at(2), u"GARAGEM"_s);
    QCOMPARE(cadastro::rowsOf(janela_).back().mid(3), (QStringList{u"1,50"_s, u"3,00"_s, u"5,00"_s, u"7,00"_s}));
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 1);
}

void TstFrmMoviLivroOrigem::aChangeStoresEmptyAmountsAsZeros()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    type(janela_, u"txtDinheiro"_s, QString());
    type(janela_, u"txtDuplicata"_s, u",,"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(livro().front().mid(3), (QStringList{u"0"_s, u"2"_s, u"3"_s, u"0"_s}));
    QCOMPARE(text(janela_, u"txtDuplicata"_s), zero);
}

void TstFrmMoviLivroOrigem::refusesABadChange_data()
{
    refusesABadRow_data();
}

void TstFrmMoviLivroOrigem::refusesABadChange()
{
    QFETCH(const QString, data);
    QFETCH(const QString, origem);
    QFETCH(const QString, mensagem);
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    preenche(data, origem, {u"9"_s, u"9"_s, u"9"_s, u"9"_s});
    caixas_->exclamation(mensagem);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(livro().front().mid(2), (QStringList{u"BALCÃO"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    QTEST(cadastro::focusOf(janela_), "foco");
}

void TstFrmMoviLivroOrigem::aRowThatIsGoneIsNotLocated()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    programa_->sql(u"DELETE * FROM LivroOrigem"_s);
    caixas_->exclamation(u"Código Não Localizado"_s);
    click(janela_, u"btnAlterar"_s);
    QVERIFY(livro().empty());
    QCOMPARE(text(janela_, u"txtOrigem"_s), u"BALCÃO"_s);
}

void TstFrmMoviLivroOrigem::withNothingClickedNothingIsChangedOrDeleted()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    entrada(core::ListaCombo::MarcaModelo, u"GOL"_s);
    abre();
    preenche(u"10052024"_s, u"garagem"_s, {u"9"_s, u"9"_s, u"9"_s, u"9"_s});
    click(janela_, u"btnAlterar"_s);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(livro().front().at(2), u"BALCÃO"_s);
    QCOMPARE(combos().size(), 1U);
}

// --- deleting

/// The statement names the table of the completion lists: the row of the book stays, and is still shown.
void TstFrmMoviLivroOrigem::deletingTakesTheCompletionListAndLeavesTheBook()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    linha(u"05/13/2024"_s, u"OFICINA"_s, u"5, 6, 7, 8"_s);
    entrada(core::ListaCombo::MarcaModelo, u"GOL"_s);
    entrada(core::ListaCombo::Bancos, u"BRASIL"_s);
    entrada(core::ListaCombo::Bancos, u"CAIXA"_s);
    entrada(core::ListaCombo::DescricaoItens, u"PARAFUSO"_s);
    abre();
    const Linhas antes = livro();
    const Linhas mostrado = cadastro::rowsOf(janela_);
    cadastro::clickRow(janela_, 1);
    caixas_->question(excluir, true);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(livro(), antes);
    QCOMPARE(combos(), (Linhas{{u"1"_s, u"GOL"_s}, {u"3"_s, u"PARAFUSO"_s}}));
    QCOMPARE(cadastro::rowsOf(janela_), mostrado);
}

void TstFrmMoviLivroOrigem::deletesNothingOnNo()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    entrada(core::ListaCombo::MarcaModelo, u"GOL"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    caixas_->question(excluir, false);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(combos().size(), 1U);
    QCOMPARE(livro().size(), 1U);
}

void TstFrmMoviLivroOrigem::aSecondDeleteAsksAgain()
{
    linha(u"05/14/2024"_s, u"BALCÃO"_s, u"1, 2, 3, 4"_s);
    entrada(core::ListaCombo::MarcaModelo, u"GOL"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    caixas_->question(excluir, true).question(excluir, true);
    click(janela_, u"btnExcluir"_s);
    click(janela_, u"btnExcluir"_s);
    QVERIFY(combos().empty());
    QCOMPARE(livro().size(), 1U);
}

void TstFrmMoviLivroOrigem::everybodyMayChangeAndDelete()
{
    programa_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    core::CodOperador = 2;
    abre();
    for (const QString &botao : {u"btnIncluir"_s, u"btnAlterar"_s, u"btnExcluir"_s}) {
        QVERIFY2(support::controlOf(janela_, botao)->isEnabled(), qPrintable(botao));
    }
}

void TstFrmMoviLivroOrigem::backCloses()
{
    abre();
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(livroorigem::janelaOrigem));
}

TARVELO_TEST_MAIN(TstFrmMoviLivroOrigem)
#include "tst_frmMoviLivroOrigem.moc"
