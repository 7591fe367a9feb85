#include "tests/shell/configura.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPointer>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace
{

const QString window = u"frmConfigOrcamento"_s;
const QString saved = u"Gravação efetuada com sucesso"_s;
const QStringList keys{u"P1"_s, u"P2"_s, u"P3"_s, u"P4"_s, u"P5"_s, u"Parcelas"_s, u"Texto1"_s, u"Texto2"_s};

ui::Form *form()
{
    return ui::Forms::instance().find(window);
}

/// "0" for "Sim", "1" for "Não", "" for none.
QString chosen(int question)
{
    for (const int option : {0, 1}) {
        if (support::control<QRadioButton>(form(), u"opt%1_%2"_s.arg(question).arg(option))->isChecked()) {
            return QString::number(option);
        }
    }
    return {};
}

QStringList allChosen()
{
    QStringList all;
    for (int question = 1; question <= 5; ++question) {
        all << chosen(question);
    }
    return all;
}

void press(int question, int option)
{
    support::click(form(), u"opt%1_%2"_s.arg(question).arg(option));
}

QStringList stored()
{
    QStringList values;
    for (const QString &key : keys) {
        values << core::ConfigOrcamento(key);
    }
    return values;
}

QString focus()
{
    return form()->focusWidget() != nullptr ? form()->focusWidget()->objectName() : QString();
}

} // namespace

/// The settings of the printed estimates.
class TstFrmConfigOrcamento : public SettingsTest
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void opensAsAChildWithTheDefaults();
    void standsWithItsCaptions();
    void eachQuestionIsItsOwn();
    void writesEveryKeyScrambled();
    void p5EqualsP4AfterSaving_data();
    void p5EqualsP4AfterSaving();
    void p5WinsOnTheScreen();
    void theFifthQuestionIsNeitherLoadedNorSaved();
    void offers24Instalments();
    void lettersBecomeCapitals();
    void aLineTakesWhatIsReadBack();
    void emptyLinesAreStoredEmpty();
    void enterGoesOnAsTab();
    void cancelsWithoutAWrite_data();
    void cancelsWithoutAWrite();
    void aValueThatIsNoneLeavesItsKey();
    void takesEveryQuoteAndMark();

private:
    void save();
};

void TstFrmConfigOrcamento::save()
{
    boxes_->information(saved);
    const QPointer<ui::Form> open = form();
    support::click(open, u"btnGravar"_s);
    boxes_->finish();
    QVERIFY(form() == nullptr);
}

void TstFrmConfigOrcamento::opensAsAChildWithTheDefaults()
{
    choose(u"itmConfigOrcamento"_s);
    QVERIFY(form() != nullptr);
    QVERIFY(!form()->isModal());
    QVERIFY(qobject_cast<QMdiSubWindow *>(form()->parentWidget()) != nullptr);
    QCOMPARE(form()->windowTitle(), u"Tarvelo - [Configurações de Orçamento]"_s);
    QCOMPARE(allChosen(), (QStringList{u"0"_s, u"0"_s, u"1"_s, u"0"_s, QString()}));
    QCOMPARE(support::text(form(), u"cboParcelas"_s), u"06"_s);
    QCOMPARE(support::text(form(), u"txtLinha1"_s), u"ORÇAMENTO VÁLIDO POR 15 DIAS"_s);
    QCOMPARE(support::text(form(), u"txtLinha2"_s), u"VALORES SUJEITOS A ALTERÇÃO SEM PRÉVIO AVISO"_s);
}

void TstFrmConfigOrcamento::standsWithItsCaptions()
{
    choose(u"itmConfigOrcamento"_s);
    QCOMPARE(support::control<QGroupBox>(form(), u"Frame1"_s)->title(), u"Configurações de Orçamento"_s);
    QStringList labels;
    for (const auto *label : form()->findChildren<QLabel *>()) {
        labels << label->text().remove(u'&');
    }
    for (const auto &caption :
         {u"Dar desconto no preço À Vista ?"_s, u"Exibir Pagamento para 30 Dias?"_s,
          u"Cobrar Juros em 30 Dias Direto ?"_s, u"Cobrar Juros no valor parcelado ?"_s,
          u"Exibir Formas de Pagamento ?"_s, u"Parcelas Exibidas:"_s, u"Texto Linha 1:"_s, u"Texto Linha 2:"_s}) {
        QVERIFY2(labels.contains(caption), qPrintable(caption));
    }
    for (int question = 1; question <= 5; ++question) {
        QCOMPARE(support::text(form(), u"opt%1_0"_s.arg(question)), u"Sim"_s);
        QCOMPARE(support::text(form(), u"opt%1_1"_s.arg(question)), u"Não"_s);
    }
}

void TstFrmConfigOrcamento::eachQuestionIsItsOwn()
{
    choose(u"itmConfigOrcamento"_s);
    for (int question = 1; question <= 5; ++question) {
        press(question, 1);
    }
    QCOMPARE(allChosen(), QStringList(5, u"1"_s));
    press(2, 0);
    QCOMPARE(allChosen(), (QStringList{u"1"_s, u"0"_s, u"1"_s, u"1"_s, u"1"_s}));
}

void TstFrmConfigOrcamento::writesEveryKeyScrambled()
{
    choose(u"itmConfigOrcamento"_s);
    press(1, 1);
    press(2, 1);
    press(3, 0);
    press(4, 1);
    support::type(form(), u"cboParcelas"_s, u"12"_s);
    support::type(form(), u"txtLinha1"_s, u"VÁLIDO POR 10 DIAS"_s);
    support::type(form(), u"txtLinha2"_s, u"PEÇAS SUJEITAS A ENCOMENDA"_s);
    save();
    const QStringList values{
        u"1"_s, u"1"_s, u"0"_s, u"1"_s, u"1"_s, u"12"_s, u"VÁLIDO POR 10 DIAS"_s, u"PEÇAS SUJEITAS A ENCOMENDA"_s};
    QCOMPARE(stored(), values);
    for (qsizetype key = 0; key < keys.size(); ++key) {
        QCOMPARE(raw(keys.at(key)), scrambled(values.at(key)));
    }
    choose(u"itmConfigOrcamento"_s); // read back
    QCOMPARE(allChosen(), (QStringList{u"1"_s, u"1"_s, u"0"_s, u"1"_s, QString()}));
    QCOMPARE(support::text(form(), u"cboParcelas"_s), u"12"_s);
    QCOMPARE(support::text(form(), u"txtLinha2"_s), u"PEÇAS SUJEITAS A ENCOMENDA"_s);
}

void TstFrmConfigOrcamento::p5EqualsP4AfterSaving_data()
{
    QTest::addColumn<QString>("p4");
    QTest::addColumn<QString>("p5");
    QTest::addColumn<int>("pressed");
    for (const int p4 : {0, 1}) {
        for (const int p5 : {0, 1}) {
            for (const int pressed : {-1, 0, 1}) {
                QTest::addRow("%d, %d, then %d", p4, p5, pressed)
                    << QString::number(p4) << QString::number(p5) << pressed;
            }
        }
    }
}

void TstFrmConfigOrcamento::p5EqualsP4AfterSaving()
{
    QFETCH(const QString, p4);
    QFETCH(const QString, p5);
    QFETCH(const int, pressed);
    program_->config(u"P4"_s, p4, u"Orcamento"_s);
    program_->config(u"P5"_s, p5, u"Orcamento"_s);
    choose(u"itmConfigOrcamento"_s);
    if (pressed >= 0) {
        press(4, pressed);
    }
    save();
    QCOMPARE(core::ConfigOrcamento(u"P4"_s), pressed >= 0 ? QString::number(pressed) : p5);
    QCOMPARE(core::ConfigOrcamento(u"P5"_s), core::ConfigOrcamento(u"P4"_s));
}

void TstFrmConfigOrcamento::p5WinsOnTheScreen()
{
    program_->config(u"P4"_s, u"1"_s, u"Orcamento"_s);
    choose(u"itmConfigOrcamento"_s);
    QCOMPARE(chosen(4), u"0"_s);
    ui::Forms::instance().Unload(window);
    program_->config(u"P4"_s, u"0"_s, u"Orcamento"_s);
    program_->config(u"P5"_s, u"1"_s, u"Orcamento"_s);
    choose(u"itmConfigOrcamento"_s);
    QCOMPARE(chosen(4), u"1"_s);
}

void TstFrmConfigOrcamento::theFifthQuestionIsNeitherLoadedNorSaved()
{
    program_->config(u"P5"_s, u"1"_s, u"Orcamento"_s);
    choose(u"itmConfigOrcamento"_s);
    QCOMPARE(chosen(5), QString());
    const QStringList before = stored();
    press(5, 0);
    press(4, 1);
    save();
    QCOMPARE(core::ConfigOrcamento(u"P5"_s), u"1"_s);
    choose(u"itmConfigOrcamento"_s);
    press(5, 1);
    press(4, 0);
    save();
    QCOMPARE(core::ConfigOrcamento(u"P5"_s), u"0"_s);
    QCOMPARE(stored().size(), before.size());
    QCOMPARE(raw(u"P6"_s), QByteArray("(no such key)"));
}

void TstFrmConfigOrcamento::offers24Instalments()
{
    choose(u"itmConfigOrcamento"_s);
    const auto *combo = support::control<QComboBox>(form(), u"cboParcelas"_s);
    QCOMPARE(combo->count(), 24);
    QCOMPARE(combo->itemText(0), u"01"_s);
    QCOMPARE(combo->itemText(8), u"09"_s);
    QCOMPARE(combo->itemText(23), u"24"_s);
    QVERIFY(!combo->isEditable());
}

void TstFrmConfigOrcamento::lettersBecomeCapitals()
{
    choose(u"itmConfigOrcamento"_s);
    support::type(form(), u"txtLinha1"_s, u"válido por 10 dias, só à vista"_s);
    QCOMPARE(support::text(form(), u"txtLinha1"_s), u"VÁLIDO POR 10 DIAS, SÓ À VISTA"_s);
}

/// What goes beyond 48 characters would not come back.
void TstFrmConfigOrcamento::aLineTakesWhatIsReadBack()
{
    choose(u"itmConfigOrcamento"_s);
    const QString line(48, u'X');
    support::type(form(), u"txtLinha1"_s, line + u"YYYYYYYYYYYY"_s);
    QCOMPARE(support::text(form(), u"txtLinha1"_s), line);
    save();
    QCOMPARE(core::ConfigOrcamento(u"Texto1"_s), line);
    QCOMPARE(core::ConfigOrcamento(u"Texto2"_s), u"VALORES SUJEITOS A ALTERÇÃO SEM PRÉVIO AVISO"_s);
}

void TstFrmConfigOrcamento::emptyLinesAreStoredEmpty()
{
    choose(u"itmConfigOrcamento"_s);
    support::type(form(), u"txtLinha1"_s, {});
    support::type(form(), u"txtLinha2"_s, {});
    save();
    QCOMPARE(raw(u"Texto1"_s), QByteArray());
    QCOMPARE(raw(u"Texto2"_s), QByteArray());
    core::CarregaConfig(); // an empty key is a missing one to the next start
    QCOMPARE(core::ConfigOrcamento(u"Texto1"_s), u"ORÇAMENTO VÁLIDO POR 15 DIAS"_s);
}

void TstFrmConfigOrcamento::enterGoesOnAsTab()
{
    choose(u"itmConfigOrcamento"_s);
    QCOMPARE(focus(), u"opt1_0"_s);
    for (const auto &next : {u"opt2_0"_s, u"opt3_1"_s, u"opt4_0"_s, u"opt5_0"_s, u"cboParcelas"_s, u"txtLinha1"_s,
                             u"txtLinha2"_s, u"btnGravar"_s}) {
        support::key(form(), focus(), Qt::Key_Return);
        QCOMPARE(focus(), next);
    }
}

void TstFrmConfigOrcamento::cancelsWithoutAWrite_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("btnCancelar") << 0;
    QTest::newRow("Esc") << 1;
    QTest::newRow("close") << 2;
}

void TstFrmConfigOrcamento::cancelsWithoutAWrite()
{
    QFETCH(const int, way);
    choose(u"itmConfigOrcamento"_s);
    const QByteArray before = file();
    press(1, 1);
    support::type(form(), u"txtLinha1"_s, u"OUTRA"_s);
    if (way == 0) {
        support::click(form(), u"btnCancelar"_s);
    } else if (way == 1) {
        support::key(form(), u"txtLinha1"_s, Qt::Key_Escape);
    } else {
        form()->parentWidget()->close();
    }
    QVERIFY(form() == nullptr);
    QCOMPARE(file(), before);
}

void TstFrmConfigOrcamento::aValueThatIsNoneLeavesItsKey()
{
    program_->config(u"P1"_s, u"S"_s, u"Orcamento"_s);
    program_->config(u"Parcelas"_s, u"36"_s, u"Orcamento"_s);
    choose(u"itmConfigOrcamento"_s);
    QCOMPARE(chosen(1), QString());
    QCOMPARE(support::text(form(), u"cboParcelas"_s), QString());
    save();
    QCOMPARE(core::ConfigOrcamento(u"P1"_s), u"S"_s);
    QCOMPARE(core::ConfigOrcamento(u"Parcelas"_s), u"36"_s);
}

void TstFrmConfigOrcamento::takesEveryQuoteAndMark()
{
    const QString line = u"PEÇAS D'ÁGUA = \"3\" [12] ; 10% & MAIS"_s;
    choose(u"itmConfigOrcamento"_s);
    support::type(form(), u"txtLinha1"_s, line);
    save();
    QCOMPARE(core::ConfigOrcamento(u"Texto1"_s), line);
}

TARVELO_TEST_MAIN(TstFrmConfigOrcamento)
#include "tst_frmConfigOrcamento.moc"
