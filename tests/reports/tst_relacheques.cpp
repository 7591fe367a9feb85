#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "reports/reports.h"
#include "support/boxes.h"

#include <QComboBox>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::rowsOf;
using papel::impresso;
using support::click;
using support::text;
using support::type;

namespace
{

const QString selecao = u"frmRelaSelecaoCheques"_s;

} // namespace

/// The report of cheques and the window that asks for its period.
class TestRelaCheques : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { reports::registerForms(); }
    void init();
    void cleanup() { programa_.reset(); }

    void theSelectionOpensWithItsPeriodAndChoices();
    void thePeriodIsThatWhichIsTyped();
    void showsTheChequesDueInThePeriod();
    void showsOneSituation_data();
    void showsOneSituation();
    void nothingFoundIsARow();
    void preencherFillsTheReportAnew();
    void printsThemOnASheetThatIsTurned();
    void thirtyEightRowsAreASheet();
    void previewsWhatItPrints();
    void aHeaderClickMovesTheTotals();
    void theSelectionIsReadAgainForEveryPrint();
    void aSelectionThatWasClosedCountsAsItWasReadLast();
    void aRowOpensNothing();
    void printingWithTheReportClosedOpensIt();

private:
    void cheque(const QString &colunas, const QString &valores);
    ui::Form *abre();
    ui::Form *preenche();

    std::unique_ptr<support::Program> programa_;
};

void TestRelaCheques::init()
{
    programa_ = std::make_unique<support::Program>();
}

void TestRelaCheques::cheque(const QString &colunas, const QString &valores)
{
    programa_->sql(u"INSERT INTO Cheques (Data, %1) VALUES (#5/10/2024#, %2)"_s.arg(colunas, valores));
}

ui::Form *TestRelaCheques::abre()
{
    cheque(u"CodOs, Banco, Conta, Numero, Valor, Vencimento, Pago, Observacoes"_s,
           u"7, 'BANCO DO BRASIL', '12-3', '900', 100.5, #5/20/2024#, True, 'NA GAVETA'"_s);
    cheque(u"CodOs, Banco, Valor, Vencimento, Pago"_s, u"0, 'CAIXA', 50, #4/15/2024#, False"_s);
    cheque(u"CodOs, Banco, Valor, Vencimento, Pago"_s, u"0, 'FORA', 10, #6/16/2024#, False"_s);
    return support::show(selecao);
}

ui::Form *TestRelaCheques::preenche()
{
    click(abre(), u"btnPreenche"_s);
    return papel::relatorio();
}

void TestRelaCheques::theSelectionOpensWithItsPeriodAndChoices()
{
    ui::Form *form = support::show(selecao);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Cheques]"_s);
    QCOMPARE(text(form, u"txtDataInicio"_s), u"15/04/2024"_s);
    QCOMPARE(text(form, u"txtDataFim"_s), u"15/06/2024"_s);
    QCOMPARE(text(form, u"cboPago"_s), u"Todos os Cheques"_s);
    auto *situacao = support::control<QComboBox>(form, u"cboPago"_s);
    QCOMPARE(situacao->itemText(0), u"Cheques Compensados"_s);
    QCOMPARE(situacao->itemText(1), u"Cheques Não Compensados"_s);
    QCOMPARE(situacao->count(), 3);
    QCOMPARE(cadastro::tabOrder(form, u"txtDataInicio"_s, 5),
             (QStringList{u"txtDataInicio"_s, u"txtDataFim"_s, u"cboPago"_s, u"btnPreenche"_s, u"btnVoltar"_s}));
    click(form, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(selecao));
}

/// Over the 15th of June, which has no 31st.
void TestRelaCheques::thePeriodIsThatWhichIsTyped()
{
    ui::Form *form = support::show(selecao);
    type(form, u"txtDataInicio"_s, u"31/1/2023"_s);
    type(form, u"txtDataFim"_s, u"31122023"_s);
    QCOMPARE(text(form, u"txtDataInicio"_s), u"31/01/2023"_s);
    QCOMPARE(text(form, u"txtDataFim"_s), u"31/12/2023"_s);
}

void TestRelaCheques::showsTheChequesDueInThePeriod()
{
    ui::Form *form = preenche();
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaCheques});
    QVERIFY(cadastro::isOpen(selecao));
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Cheques]"_s);
    QCOMPARE(cadastro::titlesOf(form), (QStringList{u"Cód. O.S."_s, u"Data"_s, u"Banco"_s, u"Conta"_s, u"Número"_s,
                                                    u"Valor"_s, u"Vencimento"_s, u"Pago"_s, u"Observações"_s}));
    const QString nada;
    QCOMPARE(rowsOf(form),
             (cadastro::Rows{
                 {u"0007"_s, u"10/05/2024"_s, u"BANCO DO BRASIL"_s, u"12-3"_s, u"900"_s, u"100,50"_s, u"20/05/2024"_s,
                  u"Sim"_s, u"NA GAVETA"_s},
                 {u"0000"_s, u"10/05/2024"_s, u"CAIXA"_s, nada, nada, u"50,00"_s, u"15/04/2024"_s, u"Não"_s, nada},
                 {nada, nada, u"Total de Cheques:"_s, nada, nada, u"150,50"_s, nada, nada, nada},
                 {nada, nada, u"Total de Cheques Compensados:"_s, nada, nada, u"100,50"_s, nada, nada, nada},
                 {nada, nada, u"Total de Cheques não Compensados:"_s, nada, nada, u"50,00"_s, nada, nada, nada},
             }));
}

void TestRelaCheques::showsOneSituation_data()
{
    QTest::addColumn<int>("situacao");
    QTest::addColumn<QString>("banco");
    QTest::newRow("cleared") << 0 << u"BANCO DO BRASIL"_s;
    QTest::newRow("not cleared") << 1 << u"CAIXA"_s;
}

void TestRelaCheques::showsOneSituation()
{
    QFETCH(int, situacao);
    QFETCH(QString, banco);
    ui::Form *form = abre();
    cadastro::choose(form, u"cboPago"_s, situacao);
    click(form, u"btnPreenche"_s);
    QCOMPARE(cadastro::columnOf(papel::relatorio(), 2),
             (QStringList{banco, u"Total de Cheques:"_s, u"Total de Cheques Compensados:"_s,
                          u"Total de Cheques não Compensados:"_s}));
}

void TestRelaCheques::nothingFoundIsARow()
{
    ui::Form *form = support::show(selecao);
    click(form, u"btnPreenche"_s);
    const auto linhas = rowsOf(papel::relatorio());
    QCOMPARE(linhas.size(), 1U);
    QCOMPARE(linhas.front().at(2), u"Registro Não Localizado"_s);
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QVERIFY(impresso().front().contains(u"Nº de Registros..: 1"_s));
}

void TestRelaCheques::preencherFillsTheReportAnew()
{
    preenche();
    ui::Form *form = ui::Forms::instance().find(selecao);
    type(support::show(selecao), u"txtDataFim"_s, u"16062024"_s);
    click(form, u"btnPreenche"_s);
    QCOMPARE(cadastro::columnOf(papel::relatorio(), 2).mid(0, 3),
             (QStringList{u"BANCO DO BRASIL"_s, u"CAIXA"_s, u"FORA"_s}));
}

void TestRelaCheques::printsThemOnASheetThatIsTurned()
{
    ui::Form *form = preenche();
    click(form, u"btnPrint"_s);
    const QString larga(5, u' ');
    QCOMPARE(
        impresso(),
        (std::vector<QStringList>{{
            QString(19, u' ') + u"RELAÇÃO DE CHEQUES"_s,
            QString(63, u' ') + u"Tarvelo"_s,
            u"Data.............: 15/05/2024"_s,
            u"Cheques Entre....: 15/04/2024 à 15/06/2024          Situação......: Todos os Cheques"_s,
            u"Nº de Registros..: 5"_s,
            u"Exibindo.....: de: 1 à 5"_s,
            u"Cod.Ch - O.S.   - Data       - Banco                - Conta           - Número Cheque - Valor      - Vencimento - Pago - Observações"_s,
            u"0001     0007     10/05/2024   BANCO DO BRASIL        12-3              900                 100,50   20/05/2024   Sim    NA GAVETA"_s,
            u"0002     0000     10/05/2024   CAIXA                                                         50,00   15/04/2024   Não"_s,
            u"                               Total de Cheques:                                            150,50"_s,
            u"                               Total de Cheques Com                                         100,50"_s,
            u"                               Total de Cheques não                                          50,00"_s,
        }}));
    const QSizeF folha = printer::printer().lastDocument().front().size();
    QVERIFY(folha.width() > folha.height());
}

void TestRelaCheques::thirtyEightRowsAreASheet()
{
    for (int numero = 1; numero <= 36; ++numero) {
        cheque(u"CodOs, Numero, Valor, Vencimento, Pago"_s, u"0, '%1', 1, #5/20/2024#, False"_s.arg(numero));
    }
    ui::Form *form = support::show(selecao);
    click(form, u"btnPreenche"_s);
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().size(), 2U);
    QVERIFY(impresso().front().contains(u"Exibindo.....: de: 1 à 38"_s));
    QVERIFY(impresso().back().contains(u"Exibindo.....: de: 39 à 39"_s));
    QCOMPARE(impresso().back().last().trimmed(),
             u"Total de Cheques não                                          36,00"_s);
}

void TestRelaCheques::previewsWhatItPrints()
{
    ui::Form *form = preenche();
    click(form, u"btnPrint"_s);
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), impresso());
}

void TestRelaCheques::aHeaderClickMovesTheTotals()
{
    ui::Form *form = preenche();
    cadastro::clickHeader(form, 2);
    QCOMPARE(cadastro::columnOf(form, 2),
             (QStringList{u"BANCO DO BRASIL"_s, u"CAIXA"_s, u"Total de Cheques Compensados:"_s,
                          u"Total de Cheques não Compensados:"_s, u"Total de Cheques:"_s}));
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().last().trimmed().left(17), u"Total de Cheques:"_s);
}

void TestRelaCheques::theSelectionIsReadAgainForEveryPrint()
{
    ui::Form *form = preenche();
    cadastro::choose(support::show(selecao), u"cboPago"_s, 0);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().at(3),
             u"Cheques Entre....: 15/04/2024 à 15/06/2024          Situação......: Cheques Compensados"_s);
    QCOMPARE(impresso().front().size(), 12);
}

void TestRelaCheques::aSelectionThatWasClosedCountsAsItWasReadLast()
{
    ui::Form *form = abre();
    type(form, u"txtDataInicio"_s, u"16042024"_s);
    click(form, u"btnPreenche"_s);
    form->Unload();
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().front().at(3),
             u"Cheques Entre....: 16/04/2024 à 15/06/2024          Situação......: Todos os Cheques"_s);
    QVERIFY(!cadastro::isOpen(selecao));
}

void TestRelaCheques::aRowOpensNothing()
{
    ui::Form *form = preenche();
    papel::clicaDuasVezes(form, 0);
    QCoreApplication::processEvents();
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaCheques});
}

/// The preview outlives its report: paper then comes from the report opened and read again.
void TestRelaCheques::printingWithTheReportClosedOpensIt()
{
    ui::Form *form = preenche();
    click(form, u"btnPrevisualizar"_s);
    form->Unload();
    click(support::show(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QVERIFY(papel::relatorio() != nullptr);
    QCOMPARE(impresso(), papel::previsto());
}

TARVELO_TEST_MAIN(TestRelaCheques)
#include "tst_relacheques.moc"
