#include "core/modulo.h"
#include "finance/finance.h"
#include "platform/ui/controls.h"
#include "platform/ui/style.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/palette.h"

#include <QApplication>
#include <QCheckBox>

#include <memory>

using namespace Qt::StringLiterals;
using support::click;
using support::contrast;
using support::key;
using support::text;
using support::type;

namespace
{

const QString zero = u"0,00"_s;
const QStringList linhaVazia{u"00"_s, zero, zero, zero};
const QStringList linhaAberta{QString(), zero, zero, zero};
constexpr int linhas = 6;

} // namespace

/// The window of the general balance: its labels are the data of the total.
class TstFrmBalanco : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { finance::registerForms(); }
    void init();
    void cleanup();

    void opensWithItsPeriodAndEmptyLines();
    void tellsItsLinesAndColumns();
    void fillsTheSixLines();
    void thePeriodIsThatOfThePickers();
    void fillingLeavesTheTotal();
    void calculatesTheTotal();
    void eachCheckCalculates_data();
    void eachCheckCalculates();
    void withNoLineCheckedAllTotalsAreZero();
    void theLabelsAreTheData();
    void uncheckingNeedsNoQuery();
    void anEmptyPeriodEmptiesAllButThePendencies();
    void beforeTheFirstFillingTheTotalIsZero();

    // Totals below 0
    void aTotalBelowZeroIsShownInTheWarningColour();
    void aNumberOfRecordsIsNormal();
    void theWarningIsReadableOnADarkDesktop();
    void theWarningFollowsTheDesktop();

    // By the keyboard
    void tabGoesDownTheSheet();
    void aLineIsTakenOutByItsLetter();
    void spaceChecksALine();
    void backCloses();

private:
    void abre() { janela_ = cadastro::open(u"frmBalanco"_s); }
    QStringList linha(const QString &nome) const;
    QStringList total() const { return linha(u"lblTotal"_s); }
    /// A row on each line, all in May: 100 of orders, 200 of notes, ...
    void movimento();
    QColor corDe(int total) const;
    static void escurece() { QApplication::setPalette(support::darkPalette()); }

    std::unique_ptr<support::Program> programa_;
    std::unique_ptr<support::Boxes> caixas_;
    ui::Form *janela_ = nullptr;
    QPalette clara_;
};

void TstFrmBalanco::init()
{
    programa_ = std::make_unique<support::Program>();
    caixas_ = std::make_unique<support::Boxes>();
    clara_ = QApplication::palette();
}

void TstFrmBalanco::cleanup()
{
    caixas_.reset();
    programa_.reset();
    QApplication::setPalette(clara_);
}

QStringList TstFrmBalanco::linha(const QString &nome) const
{
    QStringList textos;
    for (int coluna = 0; coluna < 4; ++coluna) {
        textos << text(janela_, nome + u'_' + QString::number(coluna));
    }
    return textos;
}

void TstFrmBalanco::movimento()
{
    programa_->sql(u"INSERT INTO OrdemServico (DataIn, Valor, Pago) VALUES (#05/10/2024#, 100, True)"_s);
    programa_->sql(u"INSERT INTO NotasEntradas (Data, Valor, Pago) VALUES (#05/10/2024#, 200, False)"_s);
    programa_->sql(u"INSERT INTO ContasReceber (Vencimento, Valor, Pago) VALUES (#05/10/2024#, 300, True)"_s);
    programa_->sql(u"INSERT INTO ContasPagar (Vencimento, Valor, Pago) VALUES (#05/10/2024#, 400, True)"_s);
    programa_->sql(u"INSERT INTO Cheques (CodOs, Vencimento, Valor, Pago) VALUES (0, #05/10/2024#, 500, False)"_s);
    programa_->sql(u"INSERT INTO ContaFiado (CodCliente, Data, Saldo) VALUES (1, #05/10/2024#, 600)"_s);
}

QColor TstFrmBalanco::corDe(int total) const
{
    return support::controlOf(janela_, u"lblTotal_%1"_s.arg(total))->palette().color(QPalette::WindowText);
}

void TstFrmBalanco::opensWithItsPeriodAndEmptyLines()
{
    movimento();
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Balanço Geral]"_s);
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataInicio"_s)->date(), QDate(2024, 4, 15));
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataFim"_s)->date(), QDate(2024, 5, 15));
    for (int i = 1; i <= linhas; ++i) {
        QCOMPARE(linha(u"lblLinha%1"_s.arg(i)), linhaAberta);
        QVERIFY(support::control<QCheckBox>(janela_, u"chk%1"_s.arg(i))->isChecked());
    }
    QCOMPARE(total(), linhaAberta);
    QCOMPARE(cadastro::focusOf(janela_), u"txtDataInicio"_s);
}

void TstFrmBalanco::tellsItsLinesAndColumns()
{
    abre();
    QStringList rotulos;
    for (const auto *rotulo : janela_->findChildren<QLabel *>()) {
        if (rotulo->objectName().startsWith(u"Rotulos")) {
            rotulos << rotulo->text().remove(u'&');
        }
    }
    const QStringList ditos{u"Período de:"_s,
                            u"Até:"_s,
                            u"V. Total:"_s,
                            u"Total Pago:"_s,
                            u"Gastos com Peças:"_s,
                            u"Total à Receber/Pagar:"_s,
                            u"Contas à Receber:"_s,
                            u"Contas à Pagar:"_s,
                            u"Total Geral:"_s,
                            u"Cheques Avulsos Recebidos:"_s,
                            u"Pendências de Clientes:"_s};
    for (const QString &dito : ditos) {
        QVERIFY2(rotulos.contains(dito), qPrintable(dito));
    }
    for (int i = 1; i <= linhas; ++i) {
        QCOMPARE(text(janela_, u"chk%1"_s.arg(i)), u"Calcular Linha"_s);
    }
    QCOMPARE(text(janela_, u"btnPreenche"_s).remove(u'&'), u"Preencher"_s);
    QCOMPARE(text(janela_, u"btnCalcular"_s).remove(u'&'), u"Calcular"_s);
}

void TstFrmBalanco::fillsTheSixLines()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(linha(u"lblLinha1"_s), (QStringList{u"01"_s, u"100,00"_s, u"100,00"_s, zero}));
    QCOMPARE(linha(u"lblLinha2"_s), (QStringList{u"01"_s, u"200,00"_s, zero, u"200,00"_s}));
    QCOMPARE(linha(u"lblLinha3"_s), (QStringList{u"01"_s, u"300,00"_s, u"300,00"_s, zero}));
    QCOMPARE(linha(u"lblLinha4"_s), (QStringList{u"01"_s, u"400,00"_s, u"400,00"_s, zero}));
    QCOMPARE(linha(u"lblLinha5"_s), (QStringList{u"01"_s, u"500,00"_s, zero, u"500,00"_s}));
    QCOMPARE(linha(u"lblLinha6"_s), (QStringList{u"01"_s, u"600,00"_s, zero, zero}));
}

void TstFrmBalanco::thePeriodIsThatOfThePickers()
{
    programa_->sql(u"INSERT INTO ContasPagar (Vencimento, Valor, Pago) VALUES (#06/20/2024#, 9, False)"_s);
    abre();
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(linha(u"lblLinha4"_s), linhaVazia);
    type(janela_, u"txtDataInicio"_s, u"20062024"_s);
    type(janela_, u"txtDataFim"_s, u"20062024"_s);
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(linha(u"lblLinha4"_s), (QStringList{u"01"_s, u"9,00"_s, zero, u"9,00"_s}));
}

void TstFrmBalanco::fillingLeavesTheTotal()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(total(), linhaAberta);
}

void TstFrmBalanco::calculatesTheTotal()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"btnCalcular"_s);
    // Values 100 - 200 + 300 - 400 + 500 + 600, paid 100 + 300 - 400, open 500 - 200.
    QCOMPARE(total(), (QStringList{u"06"_s, u"900,00"_s, zero, u"300,00"_s}));
}

void TstFrmBalanco::eachCheckCalculates_data()
{
    QTest::addColumn<int>("numero");
    QTest::addColumn<QString>("valor");
    QTest::newRow("orders") << 1 << u"800,00"_s;
    QTest::newRow("notes") << 2 << u"1.100,00"_s;
    QTest::newRow("receivables") << 3 << u"600,00"_s;
    QTest::newRow("payables") << 4 << u"1.300,00"_s;
    QTest::newRow("cheques") << 5 << u"400,00"_s;
    QTest::newRow("pendencies") << 6 << u"300,00"_s;
}

void TstFrmBalanco::eachCheckCalculates()
{
    QFETCH(const int, numero);
    QFETCH(const QString, valor);
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"chk%1"_s.arg(numero));
    QCOMPARE(total().at(0), u"05"_s);
    QCOMPARE(total().at(1), valor);
    click(janela_, u"chk%1"_s.arg(numero));
    QCOMPARE(total().at(1), u"900,00"_s);
}

void TstFrmBalanco::withNoLineCheckedAllTotalsAreZero()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    for (int i = 1; i <= linhas; ++i) {
        click(janela_, u"chk%1"_s.arg(i));
    }
    QCOMPARE(total(), linhaVazia);
}

void TstFrmBalanco::theLabelsAreTheData()
{
    abre();
    ui::setTextOf(support::controlOf(janela_, u"lblLinha1_0"_s), u"07"_s);
    ui::setTextOf(support::controlOf(janela_, u"lblLinha1_1"_s), u"1.234,56"_s);
    ui::setTextOf(support::controlOf(janela_, u"lblLinha2_1"_s), u"0,06"_s);
    ui::setTextOf(support::controlOf(janela_, u"lblLinha6_3"_s), u"5,00"_s);
    click(janela_, u"btnCalcular"_s);
    QCOMPARE(total(), (QStringList{u"07"_s, u"1.234,50"_s, zero, u"5,00"_s}));
}

void TstFrmBalanco::uncheckingNeedsNoQuery()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    for (const QString &tabela : {u"OrdemServico"_s, u"NotasEntradas"_s, u"Cheques"_s, u"ContaFiado"_s}) {
        programa_->sql(u"DELETE * FROM "_s + tabela);
    }
    click(janela_, u"chk5"_s);
    QCOMPARE(total(), (QStringList{u"05"_s, u"400,00"_s, zero, u"-200,00"_s}));
}

void TstFrmBalanco::anEmptyPeriodEmptiesAllButThePendencies()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    type(janela_, u"txtDataInicio"_s, u"01012020"_s);
    type(janela_, u"txtDataFim"_s, u"31012020"_s);
    click(janela_, u"btnPreenche"_s);
    for (int i = 1; i < linhas; ++i) {
        QCOMPARE(linha(u"lblLinha%1"_s.arg(i)), linhaVazia);
    }
    QCOMPARE(linha(u"lblLinha6"_s), (QStringList{u"01"_s, u"600,00"_s, zero, zero}));
}

void TstFrmBalanco::beforeTheFirstFillingTheTotalIsZero()
{
    abre();
    click(janela_, u"btnCalcular"_s);
    QCOMPARE(total(), linhaVazia);
}

// --- totals below 0

void TstFrmBalanco::aTotalBelowZeroIsShownInTheWarningColour()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"chk5"_s);
    const QColor normal = corDe(1);
    QCOMPARE(total(), (QStringList{u"05"_s, u"400,00"_s, zero, u"-200,00"_s}));
    QVERIFY(corDe(3) != normal);
    QCOMPARE(corDe(2), normal); // 0 is none
    QCOMPARE(support::controlOf(janela_, u"lblTotal_3"_s)->toolTip(), u"Total negativo"_s);
    QVERIFY(contrast(corDe(3), janela_->palette().color(QPalette::Window)) > 4.5);
    click(janela_, u"chk5"_s);
    QCOMPARE(text(janela_, u"lblTotal_3"_s), u"300,00"_s);
    QCOMPARE(corDe(3), normal);
    QCOMPARE(support::controlOf(janela_, u"lblTotal_3"_s)->toolTip(), QString());
}

void TstFrmBalanco::aNumberOfRecordsIsNormal()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"btnCalcular"_s);
    QCOMPARE(corDe(0), janela_->palette().color(QPalette::WindowText));
}

void TstFrmBalanco::theWarningIsReadableOnADarkDesktop()
{
    escurece();
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"chk5"_s);
    QVERIFY(ui::isDark(janela_->palette()));
    QVERIFY(corDe(3) != corDe(1));
    QVERIFY(contrast(corDe(3), janela_->palette().color(QPalette::Window)) > 4.5);
}

void TstFrmBalanco::theWarningFollowsTheDesktop()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"chk5"_s);
    const QColor noClaro = corDe(3);
    escurece();
    QTRY_VERIFY(corDe(3) != noClaro);
    QVERIFY(contrast(corDe(3), janela_->palette().color(QPalette::Window)) > 4.5);
    QVERIFY(contrast(corDe(1), janela_->palette().color(QPalette::Window)) > 4.5);
}

// --- by the keyboard

void TstFrmBalanco::tabGoesDownTheSheet()
{
    abre();
    const QStringList ordem{u"txtDataInicio"_s, u"txtDataFim"_s,  u"btnPreenche"_s, u"chk1"_s,
                            u"chk2"_s,          u"chk3"_s,        u"chk4"_s,        u"chk5"_s,
                            u"chk6"_s,          u"btnCalcular"_s, u"btnVoltar"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"txtDataInicio"_s, ordem.size()), ordem);
}

void TstFrmBalanco::aLineIsTakenOutByItsLetter()
{
    movimento();
    abre();
    key(janela_, u"txtDataInicio"_s, Qt::Key_H, Qt::AltModifier);
    QCOMPARE(linha(u"lblLinha5"_s).at(1), u"500,00"_s);
    key(janela_, u"btnVoltar"_s, Qt::Key_Q, Qt::AltModifier);
    QVERIFY(!support::control<QCheckBox>(janela_, u"chk5"_s)->isChecked());
    QCOMPARE(total().at(1), u"400,00"_s);
}

void TstFrmBalanco::spaceChecksALine()
{
    movimento();
    abre();
    click(janela_, u"btnPreenche"_s);
    key(janela_, u"chk1"_s, Qt::Key_Space);
    QCOMPARE(total().at(1), u"800,00"_s);
}

void TstFrmBalanco::backCloses()
{
    abre();
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmBalanco"_s));
}

TARVELO_TEST_MAIN(TstFrmBalanco)
#include "tst_frmBalanco.moc"
