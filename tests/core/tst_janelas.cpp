#include "core/janelas.h"

#include "core/embaralha.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

namespace
{

/// A window with one control of each kind, its masks wired as the program's windows wire theirs.
class frmProva : public ui::Form
{
public:
    frmProva() : ui::Form(u"frmProva"_s)
    {
        new QGridLayout(this);
        adiciona<QLineEdit>(u"txtData"_s);
        adiciona<QLineEdit>(u"txtFone"_s);
        adiciona<QLineEdit>(u"txtAno"_s);
        adiciona<QLineEdit>(u"txtCEP"_s);
        adiciona<QLineEdit>(u"txtValor"_s);
        adiciona<QPlainTextEdit>(u"txtObs"_s);
        adiciona<ui::Label>(u"lblCodigo"_s)->setText(u"0001"_s);
        adiciona<ui::Label>(u"lblTotal"_s)->setText(u"12,00"_s);
        adiciona<QLabel>(u"Rotulos_1"_s)->setText(u"Código:"_s);
        combos();
        adiciona<QRadioButton>(u"optSim"_s)->setChecked(true);
        adiciona<QCheckBox>(u"chkAdmin"_s)->setChecked(true);
        adiciona<ui::DTPicker>(u"dtpInicio"_s);
        control<QLabel>(this, u"lblTotal"_s)->setProperty("dinheiro", true);
        liga();
    }

private:
    template<class Controle>
    Controle *adiciona(const QString &nome)
    {
        auto *controle = new Controle(this);
        controle->setObjectName(nome);
        layout()->addWidget(controle);
        return controle;
    }

    void combos()
    {
        auto *livre = adiciona<QComboBox>(u"cboMarca"_s);
        livre->setEditable(true);
        livre->addItems({u"GOL"_s, u"UNO"_s});
        adiciona<QComboBox>(u"cboPessoa"_s)->addItems({u"Física"_s, u"Jurídica"_s});
    }

    QLineEdit *caixa(const QString &nome) { return control<QLineEdit>(this, nome); }

    void liga()
    {
        onChange(caixa(u"txtData"_s), &frmProva::txtData_Change);
        onChange(caixa(u"txtFone"_s), &frmProva::txtFone_Change);
        onChange(caixa(u"txtAno"_s), &frmProva::txtAno_Change);
        onChange(caixa(u"txtCEP"_s), &frmProva::txtCEP_Change);
        onLostFocus(caixa(u"txtValor"_s), &frmProva::txtValor_LostFocus);
        filterKeys(caixa(u"txtFone"_s), [](QChar tecla) { return core::SoDigitos(tecla, false); });
        filterKeys(caixa(u"txtValor"_s), [](QChar tecla) { return core::SoDigitos(tecla, true); });
    }

    void txtData_Change() { core::MascaraTexto(caixa(u"txtData"_s), core::TipoMascara::Data); }
    void txtFone_Change() { core::MascaraTexto(caixa(u"txtFone"_s), core::TipoMascara::Fone); }
    void txtAno_Change() { core::MascaraTexto(caixa(u"txtAno"_s), core::TipoMascara::Ano); }
    void txtCEP_Change() { core::MascaraTexto(caixa(u"txtCEP"_s), core::TipoMascara::CEP); }
    void txtValor_LostFocus() { core::MascaraTexto(caixa(u"txtValor"_s), core::TipoMascara::Valor); }
};

constexpr QChar backspace = u'\b';

void digita(const QWidget &janela, const QString &texto)
{
    for (const QChar letra : texto) {
        QTest::keyClick(janela.windowHandle(), letra.toLatin1());
    }
}

/// The digits that a box of a mask must hold after what the user did to it. Only what finds no room may stay outside.
class DigitosModelo
{
public:
    explicit DigitosModelo(QLineEdit &linha) : linha_(linha) {}

    /// One thing that a user may do next; gives its name.
    QString passo(QWidget &janela, const QString &caixa, QRandomGenerator &sorteio)
    {
        const int qual = int(sorteio.bounded(10));
        if (qual < 5) {
            const QString digito = QString::number(sorteio.bounded(10));
            insere(digito);
            digita(janela, digito);
            return u"type "_s + digito;
        }
        if (qual == 5) {
            const QString colado = QString::number(sorteio.bounded(1000));
            insere(colado);
            QGuiApplication::clipboard()->setText(colado);
            key(&janela, caixa, Qt::Key_V, Qt::ControlModifier);
            return u"paste "_s + colado;
        }
        if (qual == 6 || qual == 7) {
            return apaga(janela, caixa, qual == 6 ? Qt::Key_Backspace : Qt::Key_Delete);
        }
        esperado_ = antes_ = digitosDe(linha_.text());
        key(&janela, caixa, qual == 8 ? Qt::Key_Left : Qt::Key_Home);
        return u"move"_s;
    }

    /// The box holds all that was there, in its order, and of what came in the part that found room.
    bool confere() const
    {
        const QString agora = digitosDe(linha_.text());
        if (agora == esperado_) {
            return true;
        }
        const bool cheio = linha_.text().size() >= linha_.maxLength() - 2;
        return cheio && esperado_.startsWith(agora.left(inicio_)) && agora.size() >= antes_.size() &&
               agora.endsWith(antes_.mid(inicio_));
    }

    QString esperado() const { return esperado_; }

private:
    static QString digitosDe(QString texto) { return texto.remove(QRegularExpression(u"[^0-9]"_s)); }

    void insere(const QString &digitos)
    {
        antes_ = digitosDe(linha_.text());
        inicio_ = digitosDe(linha_.text().left(linha_.cursorPosition())).size();
        esperado_ = antes_.left(inicio_) + digitos + antes_.mid(inicio_);
    }

    QString apaga(QWidget &janela, const QString &caixa, Qt::Key tecla)
    {
        QString texto = linha_.text();
        const int lugar = linha_.cursorPosition() - (tecla == Qt::Key_Backspace ? 1 : 0);
        if (lugar >= 0) {
            texto.remove(lugar, 1);
        }
        esperado_ = antes_ = digitosDe(texto);
        inicio_ = 0;
        key(&janela, caixa, tecla);
        return u"delete"_s;
    }

    QLineEdit &linha_;
    QString antes_;
    QString esperado_;
    qsizetype inicio_ = 0;
};

} // namespace

class TestJanelas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void putsMarksInAsTheUserTypes_data();
    void putsMarksInAsTheUserTypes();
    void letsAMarkBeTakenBack_data();
    void letsAMarkBeTakenBack();
    void masksWhatIsTypedOverASelection();
    void leavesADeletionInTheMiddleAlone();
    void mendsItsMarksAsTheUserTypesOn_data();
    void mendsItsMarksAsTheUserTypesOn();
    void masksWhatIsPasted_data();
    void masksWhatIsPasted();
    void keepsTheDigitsUnderRandomTyping_data();
    void keepsTheDigitsUnderRandomTyping();
    void showsWhatTheProgramWritesAsItIs();
    void formatsMoneyOnLeaving_data();
    void formatsMoneyOnLeaving();

    void passesDigitsOnly_data();
    void passesDigitsOnly();
    void swallowsLettersInANumberField();

    void checksAField_data();
    void checksAField();
    void refusesWithABoxAndSelectsTheField();
    void selectsWhatEachControlHolds();
    void passesOverWhatCanNotTakeTheFocus();

    void emptiesTextsLabelsAndCombosThatCanBeTypedInto();
    void emptiesOnlyWhatIsAskedFor();
    void takesBackOptionsAndChecks();
    void emptiesTheListsOfCombos();

    void typesADateIntoAPicker();
    void asksAboutBase64InABox();

private:
    std::unique_ptr<support::Program> programa_;
    ui::Form *janela_ = nullptr;
};

void TestJanelas::initTestCase()
{
    ui::Forms::instance().add(u"frmProva"_s, [] { return new frmProva; });
}

void TestJanelas::init()
{
    programa_ = std::make_unique<support::Program>();
    janela_ = support::show(u"frmProva"_s);
}

void TestJanelas::cleanup()
{
    programa_.reset();
}

// --- masks

void TestJanelas::putsMarksInAsTheUserTypes_data()
{
    QTest::addColumn<QString>("caixa");
    QTest::addColumn<QString>("digitado");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("date: one digit") << u"txtData"_s << u"1"_s << u"1"_s;
    QTest::newRow("date: the day") << u"txtData"_s << u"15"_s << u"15/"_s;
    QTest::newRow("date: the month") << u"txtData"_s << u"1505"_s << u"15/05/"_s;
    QTest::newRow("date: whole") << u"txtData"_s << u"15052024"_s << u"15/05/2024"_s;
    QTest::newRow("phone: one digit") << u"txtFone"_s << u"1"_s << u"(1"_s;
    QTest::newRow("phone: the area") << u"txtFone"_s << u"11"_s << u"(11) "_s;
    QTest::newRow("phone: the exchange") << u"txtFone"_s << u"113222"_s << u"(11) 3222"_s.append(u'-');
    QTest::newRow("phone: whole") << u"txtFone"_s << u"1132224455"_s << u"(11) 3222-4455"_s;
    QTest::newRow("year: whole") << u"txtAno"_s << u"20232024"_s << u"2023/2024"_s;
    QTest::newRow("postal code: whole") << u"txtCEP"_s << u"12345678"_s << u"12.345-678"_s;
}

void TestJanelas::putsMarksInAsTheUserTypes()
{
    QFETCH(const QString, caixa);
    QFETCH(const QString, digitado);
    type(janela_, caixa, digitado, false);
    QTEST(text(janela_, caixa), "esperado");
    auto *linha = control<QLineEdit>(janela_, caixa);
    QCOMPARE(linha->cursorPosition(), linha->text().size());
}

void TestJanelas::letsAMarkBeTakenBack_data()
{
    QTest::addColumn<QString>("caixa");
    QTest::addColumn<QString>("digitado");
    QTest::newRow("date") << u"txtData"_s << u"1505"_s;
    QTest::newRow("phone") << u"txtFone"_s << u"113222"_s;
    QTest::newRow("year") << u"txtAno"_s << u"2023"_s;
    QTest::newRow("postal code") << u"txtCEP"_s << u"12345"_s;
}

void TestJanelas::letsAMarkBeTakenBack()
{
    QFETCH(const QString, caixa);
    QFETCH(const QString, digitado);
    type(janela_, caixa, digitado, false);
    const QString cheio = text(janela_, caixa);
    for (qsizetype resta = cheio.size() - 1; resta >= 0; --resta) {
        key(janela_, caixa, Qt::Key_Backspace);
        QCOMPARE(text(janela_, caixa), cheio.left(resta));
    }
}

void TestJanelas::masksWhatIsTypedOverASelection()
{
    type(janela_, u"txtFone"_s, u"1132224451"_s, false);
    type(janela_, u"txtFone"_s, u"2134445566"_s, false);
    QCOMPARE(text(janela_, u"txtFone"_s), u"(21) 3444-5566"_s);
}

void TestJanelas::leavesADeletionInTheMiddleAlone()
{
    type(janela_, u"txtData"_s, u"1505"_s, false);
    for (int i = 0; i < 6; ++i) {
        key(janela_, u"txtData"_s, Qt::Key_Left);
    }
    key(janela_, u"txtData"_s, Qt::Key_Delete);
    QCOMPARE(text(janela_, u"txtData"_s), u"5/05/"_s);
}

void TestJanelas::mendsItsMarksAsTheUserTypesOn_data()
{
    QTest::addColumn<QString>("caixa");
    QTest::addColumn<QString>("digitado");
    QTest::addColumn<int>("apagados");
    QTest::addColumn<QString>("depois");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("date: to the bar") << u"txtData"_s << u"01021980"_s << 5 << u"1980"_s << u"01/02/1980"_s;
    QTest::newRow("date: both bars") << u"txtData"_s << u"01021980"_s << 8 << u"031999"_s << u"01/03/1999"_s;
    QTest::newRow("phone: the dash") << u"txtFone"_s << u"1132224455"_s << 5 << u"9988"_s << u"(11) 3222-9988"_s;
    QTest::newRow("phone: half of a mark") << u"txtFone"_s << u"11"_s << 1 << u"32224455"_s << u"(11) 3222-4455"_s;
    QTest::newRow("phone: the whole mark") << u"txtFone"_s << u"11"_s << 2 << u"32224455"_s << u"(11) 3222-4455"_s;
    QTest::newRow("year") << u"txtAno"_s << u"20232024"_s << 5 << u"2025"_s << u"2023/2025"_s;
    QTest::newRow("year: its bar typed too") << u"txtAno"_s << u"2023"_s << 0 << u"/2024"_s << u"2023/2024"_s;
    QTest::newRow("year: two short ones") << u"txtAno"_s << u""_s << 0 << u"98/99"_s << u"98/99"_s;
    QTest::newRow("postal code: the dash") << u"txtCEP"_s << u"12345678"_s << 4 << u"987"_s << u"12.345-987"_s;
    QTest::newRow("postal code: the point") << u"txtCEP"_s << u"12345678"_s << 8 << u"310100"_s << u"12.310-100"_s;
}

void TestJanelas::mendsItsMarksAsTheUserTypesOn()
{
    QFETCH(const QString, caixa);
    QFETCH(const QString, digitado);
    QFETCH(const int, apagados);
    QFETCH(const QString, depois);
    type(janela_, caixa, digitado, false);
    for (int i = 0; i < apagados; ++i) {
        key(janela_, caixa, Qt::Key_Backspace);
    }
    digita(*janela_, depois);
    QTEST(text(janela_, caixa), "esperado");
    auto *linha = control<QLineEdit>(janela_, caixa);
    QCOMPARE(linha->cursorPosition(), linha->text().size());
}

void TestJanelas::masksWhatIsPasted_data()
{
    QTest::addColumn<QString>("caixa");
    QTest::addColumn<QString>("colado");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("date: digits") << u"txtData"_s << u"01021980"_s << u"01/02/1980"_s;
    QTest::newRow("date: masked") << u"txtData"_s << u"01/02/1980"_s << u"01/02/1980"_s;
    QTest::newRow("date: short numbers") << u"txtData"_s << u"1/2/1980"_s << u"1/2/1980"_s;
    QTest::newRow("date: the first half") << u"txtData"_s << u"0102"_s << u"01/02/"_s;
    QTest::newRow("date: a word") << u"txtData"_s << u"HOJE MESMO"_s << u"HOJE MESMO"_s;
    QTest::newRow("phone: digits") << u"txtFone"_s << u"1132224455"_s << u"(11) 3222-4455"_s;
    QTest::newRow("phone: masked") << u"txtFone"_s << u"(11) 3222-4455"_s << u"(11) 3222-4455"_s;
    QTest::newRow("phone: otherwise") << u"txtFone"_s << u"11 3222.4455"_s << u"(11) 3222-4455"_s;
    QTest::newRow("phone: 11 digits") << u"txtFone"_s << u"11987654321"_s << u"(11) 9876-5432"_s;
    QTest::newRow("year: digits") << u"txtAno"_s << u"20232024"_s << u"2023/2024"_s;
    QTest::newRow("year: short numbers") << u"txtAno"_s << u"98/99"_s << u"98/99"_s;
    QTest::newRow("postal code: digits") << u"txtCEP"_s << u"01310100"_s << u"01.310-100"_s;
    QTest::newRow("postal code: masked") << u"txtCEP"_s << u"01.310-100"_s << u"01.310-100"_s;
    QTest::newRow("postal code: as on a letter") << u"txtCEP"_s << u"01310-100"_s << u"01.310-100"_s;
}

void TestJanelas::masksWhatIsPasted()
{
    QFETCH(const QString, caixa);
    QFETCH(const QString, colado);
    control<QLineEdit>(janela_, u"txtFone"_s)->setMaxLength(14);
    QGuiApplication::clipboard()->setText(colado);
    key(janela_, caixa, Qt::Key_V, Qt::ControlModifier);
    QTEST(text(janela_, caixa), "esperado");
}

void TestJanelas::keepsTheDigitsUnderRandomTyping_data()
{
    QTest::addColumn<QString>("caixa");
    QTest::addColumn<int>("maior");
    QTest::addColumn<QString>("inteiro");
    QTest::newRow("date") << u"txtData"_s << 10 << uR"(\d{0,2}/\d{0,2}/\d*)"_s;
    QTest::newRow("phone") << u"txtFone"_s << 14 << uR"(\(\d\d\) \d{4}-\d{4})"_s;
    QTest::newRow("year") << u"txtAno"_s << 9 << uR"(\d{0,4}/\d*)"_s;
    QTest::newRow("postal code") << u"txtCEP"_s << 10 << uR"(\d\d\.\d{3}-\d{3})"_s;
}

/// A plain model of what a user does to digits, against the box: marks come and go, the digits stay.
void TestJanelas::keepsTheDigitsUnderRandomTyping()
{
    QFETCH(const QString, caixa);
    QFETCH(const int, maior);
    QFETCH(const QString, inteiro);
    auto *linha = control<QLineEdit>(janela_, caixa);
    linha->setMaxLength(maior);
    QRandomGenerator sorteio(20240515);
    for (int rodada = 0; rodada < 60; ++rodada) {
        type(janela_, caixa, QString(), false);
        DigitosModelo modelo(*linha);
        for (int passo = 0; passo < 40; ++passo) {
            const QString feito = modelo.passo(*janela_, caixa, sorteio);
            QVERIFY2(modelo.confere(), qPrintable(feito + u" -> "_s + linha->text() + u", "_s + modelo.esperado()));
        }
        key(janela_, caixa, Qt::Key_End);
        digita(*janela_, QString(maior, u'7'));
        QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(inteiro)).match(linha->text()).hasMatch(),
                 qPrintable(linha->text()));
    }
}

void TestJanelas::showsWhatTheProgramWritesAsItIs()
{
    auto *fone = control<QLineEdit>(janela_, u"txtFone"_s);
    type(janela_, u"txtFone"_s, u"11"_s, false);
    fone->setText(u"3222-4455"_s + u'1');
    QCOMPARE(fone->text(), u"3222-44551"_s);
}

void TestJanelas::formatsMoneyOnLeaving_data()
{
    QTest::addColumn<QString>("digitado");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("whole") << u"10"_s << u"10,00"_s;
    QTest::newRow("decimals") << u"1234,5"_s << u"1.234,50"_s;
    QTest::newRow("a point groups") << u"10.50"_s << u"1.050,00"_s;
    QTest::newRow("half a cent") << u"1,005"_s << u"1,01"_s;
    QTest::newRow("no number stays") << u"1,2,3"_s << u"1,2,3"_s;
    QTest::newRow("empty stays") << QString() << QString();
}

void TestJanelas::formatsMoneyOnLeaving()
{
    QFETCH(const QString, digitado);
    type(janela_, u"txtValor"_s, digitado);
    QTEST(text(janela_, u"txtValor"_s), "esperado");
}

// --- keys

void TestJanelas::passesDigitsOnly_data()
{
    QTest::addColumn<QChar>("tecla");
    QTest::addColumn<bool>("inteiro");
    QTest::addColumn<bool>("decimal");
    QTest::newRow("0") << QChar(u'0') << true << true;
    QTest::newRow("9") << QChar(u'9') << true << true;
    QTest::newRow("Backspace") << backspace << true << true;
    QTest::newRow("comma") << QChar(u',') << false << true;
    QTest::newRow("point") << QChar(u'.') << false << true;
    QTest::newRow("minus") << QChar(u'-') << false << false;
    QTest::newRow("letter") << QChar(u'A') << false << false;
    QTest::newRow("blank") << QChar(u' ') << false << false;
    QTest::newRow("a digit of another script") << QChar(u'٣') << false << false;
}

void TestJanelas::passesDigitsOnly()
{
    QFETCH(const QChar, tecla);
    QFETCH(const bool, inteiro);
    QFETCH(const bool, decimal);
    QCOMPARE(core::SoDigitos(tecla, false), inteiro ? tecla : QChar());
    QCOMPARE(core::SoDigitos(tecla, true), decimal ? tecla : QChar());
}

void TestJanelas::swallowsLettersInANumberField()
{
    type(janela_, u"txtValor"_s, u"1a2,b5"_s, false);
    QCOMPARE(text(janela_, u"txtValor"_s), u"12,5"_s);
}

// --- checks

void TestJanelas::checksAField_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<core::TipoCampo>("tipo");
    QTest::addColumn<bool>("valido");
    QTest::newRow("a date") << u"29/02/2024"_s << core::TipoCampo::Data << true;
    QTest::newRow("a date that is none") << u"30/02/2024"_s << core::TipoCampo::Data << false;
    QTest::newRow("an empty date") << QString() << core::TipoCampo::Data << false;
    QTest::newRow("a number") << u"1,5"_s << core::TipoCampo::Numerico << true;
    QTest::newRow("letters") << u"abc"_s << core::TipoCampo::Numerico << false;
    QTest::newRow("an empty number") << QString() << core::TipoCampo::Numerico << false;
    QTest::newRow("a text") << u"x"_s << core::TipoCampo::NaoVazio << true;
    QTest::newRow("blanks are a text") << u" "_s << core::TipoCampo::NaoVazio << true;
    QTest::newRow("nothing") << QString() << core::TipoCampo::NaoVazio << false;
}

void TestJanelas::checksAField()
{
    QFETCH(const QString, texto);
    QFETCH(const core::TipoCampo, tipo);
    QFETCH(const bool, valido);
    auto *caixa = control<QLineEdit>(janela_, u"txtAno"_s);
    caixa->setText(texto);
    support::Boxes caixas;
    if (!valido) {
        caixas.title(core::NomeEmpresa).exclamation(u"Campo Inválido"_s);
    }
    QCOMPARE(core::ValidaCampo(caixa, u"Campo Inválido"_s, tipo), valido);
    caixas.finish();
}

void TestJanelas::refusesWithABoxAndSelectsTheField()
{
    core::NomeEmpresa = u"OFICINA"_s;
    auto *caixa = control<QLineEdit>(janela_, u"txtAno"_s);
    caixa->setText(u"abc"_s);
    support::Boxes caixas;
    caixas.title(u"OFICINA"_s).exclamation(u"Ano Inválido"_s);
    core::Recusa(u"Ano Inválido"_s, caixa);
    caixas.finish();
    QCOMPARE(caixa->selectedText(), u"abc"_s);
    QCOMPARE(janela_->focusWidget(), caixa);
}

void TestJanelas::selectsWhatEachControlHolds()
{
    auto *obs = control<QPlainTextEdit>(janela_, u"txtObs"_s);
    obs->setPlainText(u"texto"_s);
    core::SelecionaTexto(obs);
    QCOMPARE(obs->textCursor().selectedText(), u"texto"_s);
    QVERIFY(obs->hasFocus());

    auto *combo = control<QComboBox>(janela_, u"cboMarca"_s);
    combo->setEditText(u"GOL"_s);
    core::SelecionaTexto(combo);
    QCOMPARE(combo->lineEdit()->selectedText(), u"GOL"_s);
    QVERIFY(combo->lineEdit()->hasFocus());

    auto *escolha = control<QComboBox>(janela_, u"cboPessoa"_s);
    core::SelecionaTexto(escolha);
    QVERIFY(escolha->hasFocus());
}

void TestJanelas::passesOverWhatCanNotTakeTheFocus()
{
    auto *caixa = control<QLineEdit>(janela_, u"txtAno"_s);
    caixa->setFocus();
    auto *escondida = control<QLineEdit>(janela_, u"txtCEP"_s);
    escondida->hide();
    core::SelecionaTexto(escondida);
    auto *desligada = control<QLineEdit>(janela_, u"txtValor"_s);
    desligada->setEnabled(false);
    core::SelecionaTexto(desligada);
    QVERIFY(caixa->hasFocus());
    escondida->show();
    QVERIFY(caixa->hasFocus());
}

// --- clearing

void TestJanelas::emptiesTextsLabelsAndCombosThatCanBeTypedInto()
{
    control<QLineEdit>(janela_, u"txtAno"_s)->setText(u"2024"_s);
    control<QPlainTextEdit>(janela_, u"txtObs"_s)->setPlainText(u"texto"_s);
    auto *combo = control<QComboBox>(janela_, u"cboMarca"_s);
    combo->setEditText(u"FUSCA"_s);
    control<QComboBox>(janela_, u"cboPessoa"_s)->setCurrentIndex(1);
    auto *data = control<ui::DTPicker>(janela_, u"dtpInicio"_s);
    data->setDate(QDate(2024, 1, 2));

    core::LimpaForm(*janela_);

    QCOMPARE(text(janela_, u"txtAno"_s), QString());
    QCOMPARE(text(janela_, u"txtObs"_s), QString());
    QCOMPARE(text(janela_, u"lblCodigo"_s), QString());
    QCOMPARE(text(janela_, u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(text(janela_, u"Rotulos_1"_s), u"Código:"_s);
    QCOMPARE(combo->currentText(), QString());
    QCOMPARE(combo->count(), 2);
    QCOMPARE(text(janela_, u"cboPessoa"_s), u"Jurídica"_s);
    QVERIFY(control<QRadioButton>(janela_, u"optSim"_s)->isChecked());
    QVERIFY(control<QCheckBox>(janela_, u"chkAdmin"_s)->isChecked());
    QCOMPARE(data->date(), QDate(2024, 1, 2));
    QCOMPARE(data->text(), u"02/01/2024"_s);
}

void TestJanelas::emptiesOnlyWhatIsAskedFor()
{
    control<QLineEdit>(janela_, u"txtAno"_s)->setText(u"2024"_s);
    control<QComboBox>(janela_, u"cboMarca"_s)->setEditText(u"FUSCA"_s);
    core::LimpaForm(*janela_, {.textos = false, .rotulos = false, .textoCombos = false});
    QVERIFY(text(janela_, u"txtAno"_s).startsWith(u"2024"));
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(janela_, u"cboMarca"_s), u"FUSCA"_s);
}

void TestJanelas::takesBackOptionsAndChecks()
{
    core::LimpaForm(*janela_, {.opcoes = true, .checks = true});
    QVERIFY(!control<QRadioButton>(janela_, u"optSim"_s)->isChecked());
    QVERIFY(!control<QCheckBox>(janela_, u"chkAdmin"_s)->isChecked());
    click(janela_, u"optSim"_s);
    QVERIFY(control<QRadioButton>(janela_, u"optSim"_s)->isChecked());
}

void TestJanelas::emptiesTheListsOfCombos()
{
    core::LimpaForm(*janela_, {.listaCombos = true});
    QCOMPARE(control<QComboBox>(janela_, u"cboMarca"_s)->count(), 0);
    QCOMPARE(control<QComboBox>(janela_, u"cboPessoa"_s)->count(), 0);
}

// --- the fixture's own events

void TestJanelas::typesADateIntoAPicker()
{
    type(janela_, u"dtpInicio"_s, u"03/02/2025"_s);
    QCOMPARE(control<ui::DTPicker>(janela_, u"dtpInicio"_s)->date(), QDate(2025, 2, 3));
    type(janela_, u"cboPessoa"_s, u"Jur"_s);
    QCOMPARE(text(janela_, u"cboPessoa"_s), u"Jurídica"_s);
    type(janela_, u"cboMarca"_s, u"maçã"_s);
    QCOMPARE(text(janela_, u"cboMarca"_s), u"MAÇÃ"_s);
}

void TestJanelas::asksAboutBase64InABox()
{
    support::Boxes caixas;
    caixas.title(u"PROGRAM ERROR"_s)
        .okCancel(u"Illegal Characters <!!!!> found"_s, QMessageBox::Warning, true)
        .okCancel(u"Illegal Characters <!!!!> found"_s, QMessageBox::Warning, false);
    QCOMPARE(core::Base64Decodifica(u"!!!!QUJD"_s), u"???ABC"_s);
    QCOMPARE(core::Base64Decodifica(u"QUJD!!!!QUJD"_s), u"ABC"_s);
    caixas.finish();
}

TARVELO_TEST_MAIN(TestJanelas)
#include "tst_janelas.moc"
