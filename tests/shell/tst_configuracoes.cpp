#include "tests/shell/configura.h"

#include "platform/ui/boxes.h"
#include "shell/configuracoes.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

struct Asked {
    const char16_t *item;
    const char16_t *key;
    const char16_t *prompt;
    const char16_t *shown; ///< at a new installation
};

constexpr Asked texts[] = {
    {u"itmConfigNome", u"Nome", u"Digite o Nome da Empresa", u"Tarvelo"},
    {u"itmConfigEndereco", u"Endereco", u"Digite o Endereço da Empresa", u"Endereço"},
    {u"itmConfigBairro", u"Bairro", u"Digite o Bairro - Cidade - UF da Empresa", u"Bairro"},
    {u"itmConfigTelefone", u"Telefone", u"Digite o Telefone da Empresa", u"Telefone"},
    {u"itmConfigPersonalizacao", u"Personalizacao", u"Digite o Código de Personalização da Empresa", u"0"},
};

constexpr Asked rates[] = {
    {u"itmConfigTaxaJuros", u"Juros",
     u"Digite o valor de juros (%) mensal para cálculo de parcelamento de ordens de serviços", u"0"},
    {u"itmConfigDesconto", u"Desconto", u"Digite o valor de desconto (%) máximo permitido para ordens de serviços",
     u"0"},
};

constexpr Asked layout{u"itmConfigLayoutOS", u"LayoutOS",
                       u"Digite o Código do Layout de Impressão de Ordens de Serviços", u"1"};

constexpr Asked answers[] = {
    {u"itmConfigBloquearLC", u"PermiteLC",
     u"Permitir o Fechamento de Ordens de Serviços com o Limite de Crédito do Cliente Esgotado? Digite:", u"S"},
    {u"itmConfigAutoComplete", u"AutoComplete",
     u"Ativar Função Auto-Completar para as Caixas de Listagens Dinâmicas? Digite:", u"S"},
    {u"itmConfigAvisaVencimentoContas", u"ExibeAviso",
     u"Avisar na abertura do programa Vencimentos de Contas à Pagar/Receber/Cheques/Pendências de Clientes? Digite:",
     u"S"},
    {u"itmConfigLancarReg", u"LancarRegAutCRLivroCaixa",
     u"Lançar Automaticamente os Registros de baixa do Contas a Receber no Livro Caixa e Conta do Cliente? Digite:",
     u""},
    {u"itmConfigCadastroAutomatico", u"PreencheCadastroAutomatico",
     u"Ativar Preenchimento Automático de Cadastros (aumenta desempenho) ? Digite:", u"S"},
    {u"itmConfigPrintFormaPagtoOs", u"PrintFormaPagto", u"Imprimir Formas de Pagamento nas Ordens de Serviços? Digite:",
     u"S"},
};

constexpr Asked cep{u"itmConfigCEP", u"CEP", u"Ativar a busca de endereços do banco de dados de CEP? Digite:", u"S"};
constexpr Asked reminder{u"itmConfigAvisaBackup", u"AvisaBackup",
                         u"Lembrar quando você deve realizar um backup do sistema", u"S"};

const QString days = u"Freqüência de Dias do Backup (Nº de Dias)"_s;

QString text(const char16_t *of)
{
    return QString::fromUtf16(of);
}

void addColumns()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("shown");
}

void addRow(const Asked &asked, const QString &prompt)
{
    QTest::newRow(qPrintable(text(asked.item))) << text(asked.item) << text(asked.key) << prompt << text(asked.shown);
}

} // namespace

/// Each setting of the menu: its question, its answers and what stands in the file afterwards.
class TstConfiguracoes : public SettingsTest
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void everyCommandOfTheMenuActs();
    void aTextIsWrittenAndConfirmed_data() { textRows(); }
    void aTextIsWrittenAndConfirmed();
    void aYesOrNoIsTakenInUpperCase_data() { answerRows(); }
    void aYesOrNoIsTakenInUpperCase();
    void anEmptyOrCancelledBoxChangesNothing_data() { allRows(); }
    void anEmptyOrCancelledBoxChangesNothing();
    void anotherAnswerThanYesOrNoIsPassedOver_data() { answerRows(true); }
    void anotherAnswerThanYesOrNoIsPassedOver();

    void theNameIsTheProgramsAtOnce();
    void aRateIsStoredInItsForm_data();
    void aRateIsStoredInItsForm();
    void aRateIsOfferedAsItIsStored();
    void aRateThatIsNoNumberIsRefused_data();
    void aRateThatIsNoNumberIsRefused();
    void aLayoutThatIsNoNumberIsPassedOver_data();
    void aLayoutThatIsNoNumberIsPassedOver();
    void aLayoutIsStoredAsItIsTyped();
    void theNoticesAreOfferedTheCreditLimitsAnswer();
    void thePostingOfReceivablesIsAbsentUntilSet();
    void completionIsSwitchedAtOnce();
    void theFormsOfPaymentSwitchCompletionToo();
    void theReminderAsksForItsDays_data();
    void theReminderAsksForItsDays();
    void theReminderChangesNothingWithoutDays_data();
    void theReminderChangesNothingWithoutDays();
    void theReminderIsSwitchedOffAlone();
    void writesToAReadOnlyFileAreLostInSilence();
    void aMissingFileIsMadeAnew();
    void aValueThatIsNotScrambledIsAskedAbout();
    void noSettingSetsTheMode();

private:
    static void textRows();
    static void answerRows(bool others = false);
    static void allRows();
};

void TstConfiguracoes::textRows()
{
    addColumns();
    for (const Asked &asked : texts) {
        addRow(asked, text(asked.prompt));
    }
}

/// `others` adds the two questions that do more than to write their answer.
void TstConfiguracoes::answerRows(bool others)
{
    addColumns();
    for (const Asked &asked : answers) {
        addRow(asked, yesOrNo(text(asked.prompt)));
    }
    if (others) {
        addRow(cep, yesOrNo(text(cep.prompt)));
        addRow(reminder, yesOrNo(text(reminder.prompt)));
    }
}

void TstConfiguracoes::allRows()
{
    textRows();
    for (const Asked &asked : rates) {
        addRow(asked, text(asked.prompt));
    }
    addRow(layout, text(layout.prompt));
    for (const Asked &asked : answers) {
        addRow(asked, yesOrNo(text(asked.prompt)));
    }
    addRow(cep, yesOrNo(text(cep.prompt)));
    addRow(reminder, yesOrNo(text(reminder.prompt)));
}

/// Two open a window, one the operators; the rest are settings, and no other command of the program is one.
void TstConfiguracoes::everyCommandOfTheMenuActs()
{
    const QStringList windows{u"itmConfigLogo"_s, u"itmConfigOrcamento"_s, u"itmConfigSenha"_s};
    int settings = 0;
    for (const auto *command : shell::principal().findChildren<QAction *>()) {
        const QString item = command->objectName();
        const bool asks = shell::ajusteDe(item) != nullptr;
        QCOMPARE(asks, item.startsWith(u"itmConfig"_s) && !windows.contains(item));
        QVERIFY2(command->isEnabled() || !item.startsWith(u"itmConfig"_s), qPrintable(item));
        settings += asks ? 1 : 0;
    }
    QCOMPARE(settings, 16);
}

void TstConfiguracoes::aTextIsWrittenAndConfirmed()
{
    QFETCH(const QString, item);
    QFETCH(const QString, key);
    QFETCH(const QString, prompt);
    QFETCH(const QString, shown);
    boxes_->inputKeep(prompt, shown).information(done);
    ask(item);
    isStored(key, shown);
    const QString typed = u"Rua d'Água, \"12\" = 3; ção"_s;
    boxes_->title({}).input(prompt, typed).information(done);
    ask(item);
    isStored(key, typed);
    boxes_->inputKeep(prompt, typed).information(done); // read again from the file
    ask(item);
}

void TstConfiguracoes::aYesOrNoIsTakenInUpperCase()
{
    QFETCH(const QString, item);
    QFETCH(const QString, key);
    QFETCH(const QString, prompt);
    QFETCH(const QString, shown);
    boxes_->input(prompt, u"n"_s).information(done);
    if (!shown.isEmpty()) {
        boxes_->inputKeep(prompt, key == u"ExibeAviso" ? u"S"_s : u"N"_s).information(done);
    }
    choose(item);
    isStored(key, u"N"_s);
    if (!shown.isEmpty()) {
        ask(item);
    }
    boxes_->input(prompt, u"s"_s).information(done);
    ask(item);
    isStored(key, u"S"_s);
    boxes_->input(prompt, u"N"_s).information(done).input(prompt, u"S"_s).information(done);
    choose(item);
    isStored(key, u"N"_s);
    ask(item);
    isStored(key, u"S"_s);
}

void TstConfiguracoes::anEmptyOrCancelledBoxChangesNothing()
{
    QFETCH(const QString, item);
    QFETCH(const QString, prompt);
    const QByteArray before = file();
    boxes_->input(prompt, {}).inputCancel(prompt);
    choose(item);
    ask(item);
    QCOMPARE(file(), before);
    QCOMPARE(shell::principal().windowTitle(), u"Tarvelo - Tarvelo 2.1.34"_s);
}

void TstConfiguracoes::anotherAnswerThanYesOrNoIsPassedOver()
{
    QFETCH(const QString, item);
    QFETCH(const QString, prompt);
    const QByteArray before = file();
    for (const QString &answer : {u"SIM"_s, u"x"_s, u"0"_s, u" S"_s, u"'"_s}) {
        boxes_->input(prompt, answer);
        ask(item);
        QCOMPARE(file(), before);
    }
}

void TstConfiguracoes::theNameIsTheProgramsAtOnce()
{
    const QString name = u"OFICINA DO ZÉ & FILHOS"_s;
    boxes_->title({}).input(u"Digite o Nome da Empresa"_s, name);
    QMessageBox *confirmation = nullptr;
    QString title;
    QString main;
    boxes_->information(done);
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        confirmation = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        title = confirmation != nullptr ? confirmation->windowTitle() : title;
        main = confirmation != nullptr ? shell::principal().windowTitle() : main;
    });
    watch.start(0);
    ask(u"itmConfigNome"_s);
    watch.stop();
    QCOMPARE(title, name);
    QCOMPARE(main, QString(name + u" - Tarvelo 2.1.34"_s));
    QCOMPARE(core::NomeEmpresa, name);
    QCOMPARE(ui::boxTitle(), name);
    isStored(u"Nome"_s, name);
    boxes_->title(name).inputCancel(u"Digite o Telefone da Empresa"_s);
    ask(u"itmConfigTelefone"_s);
    ui::Forms::instance().Show(u"frmInfo"_s);
    QCOMPARE(ui::Forms::instance().find(u"frmInfo"_s)->windowTitle(), QString(name + u" - [Sobre]"_s));
}

void TstConfiguracoes::aRateIsStoredInItsForm_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("2") << u"2"_s << u"0,02"_s;
    QTest::newRow("0") << u"0"_s << u"0,00"_s;
    QTest::newRow("15") << u"15"_s << u"0,15"_s;
    QTest::newRow("150") << u"150"_s << u"0,150"_s;
    QTest::newRow("1,4 is rounded first") << u"1,4"_s << u"0,01"_s;
    QTest::newRow("1,5 is rounded first") << u"1,5"_s << u"0,02"_s;
    QTest::newRow("2,5 is rounded first") << u"2,5"_s << u"0,03"_s;
    QTest::newRow("the point is a thousand mark") << u"1.5"_s << u"0,15"_s;
    QTest::newRow("an exponent") << u"1e1"_s << u"0,10"_s;
    QTest::newRow("below zero") << u"-2"_s << u"0,-02"_s;
}

void TstConfiguracoes::aRateIsStoredInItsForm()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, stored);
    for (const Asked &asked : rates) {
        boxes_->input(text(asked.prompt), typed).information(done);
        ask(text(asked.item));
        isStored(text(asked.key), stored);
    }
}

/// So what is offered is not what was typed, and accepting it stores another rate.
void TstConfiguracoes::aRateIsOfferedAsItIsStored()
{
    for (const Asked &asked : rates) {
        boxes_->inputKeep(text(asked.prompt), u"0"_s).information(done);
        ask(text(asked.item));
        boxes_->input(text(asked.prompt), u"2"_s).information(done);
        ask(text(asked.item));
        boxes_->inputKeep(text(asked.prompt), u"0,02"_s).information(done);
        ask(text(asked.item));
        isStored(text(asked.key), u"0,00"_s);
    }
}

void TstConfiguracoes::aRateThatIsNoNumberIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *typed : {"dois", "2%", "'", " ", "1e999", "2 3"}) {
        QTest::newRow(typed) << QString::fromLatin1(typed);
    }
}

void TstConfiguracoes::aRateThatIsNoNumberIsRefused()
{
    QFETCH(const QString, typed);
    const QByteArray before = file();
    boxes_->input(text(rates[0].prompt), typed).exclamation(u"Você deve inserir uma taxa válida"_s);
    ask(text(rates[0].item));
    boxes_->input(text(rates[1].prompt), typed).exclamation(u"Você deve inserir uma porcentagem válida"_s);
    ask(text(rates[1].item));
    QCOMPARE(file(), before);
}

void TstConfiguracoes::aLayoutThatIsNoNumberIsPassedOver_data()
{
    aRateThatIsNoNumberIsRefused_data();
}

void TstConfiguracoes::aLayoutThatIsNoNumberIsPassedOver()
{
    QFETCH(const QString, typed);
    const QByteArray before = file();
    boxes_->input(text(layout.prompt), typed);
    ask(text(layout.item));
    QCOMPARE(file(), before);
}

void TstConfiguracoes::aLayoutIsStoredAsItIsTyped()
{
    boxes_->inputKeep(text(layout.prompt), u"1"_s).information(done);
    ask(text(layout.item));
    for (const QString &typed : {u"3"_s, u"1,5"_s, u"02"_s}) {
        boxes_->input(text(layout.prompt), typed).information(done);
        ask(text(layout.item));
        isStored(u"LayoutOS"_s, typed);
    }
}

void TstConfiguracoes::theNoticesAreOfferedTheCreditLimitsAnswer()
{
    const QString prompt = yesOrNo(text(answers[2].prompt));
    program_->config(u"PermiteLC"_s, u"N"_s);
    QCOMPARE(core::Config(u"ExibeAviso"_s), u"S"_s);
    boxes_->inputKeep(prompt, u"N"_s).information(done); // so Enter alone switches the notices off
    ask(u"itmConfigAvisaVencimentoContas"_s);
    isStored(u"ExibeAviso"_s, u"N"_s);
    program_->config(u"PermiteLC"_s, u"S"_s);
    boxes_->inputKeep(prompt, u"S"_s).information(done);
    ask(u"itmConfigAvisaVencimentoContas"_s);
    isStored(u"ExibeAviso"_s, u"S"_s);
    isStored(u"PermiteLC"_s, u"S"_s);
}

void TstConfiguracoes::thePostingOfReceivablesIsAbsentUntilSet()
{
    const QString key = u"LancarRegAutCRLivroCaixa"_s;
    const QString prompt = yesOrNo(text(answers[3].prompt));
    QCOMPARE(raw(key), QByteArray("(no such key)"));
    boxes_->inputKeep(prompt, {}); // nothing is offered, and nothing is no answer
    ask(u"itmConfigLancarReg"_s);
    QCOMPARE(raw(key), QByteArray("(no such key)"));
    boxes_->input(prompt, u"S"_s).information(done);
    ask(u"itmConfigLancarReg"_s);
    isStored(key, u"S"_s);
    boxes_->inputKeep(prompt, u"S"_s).information(done);
    ask(u"itmConfigLancarReg"_s);
}

void TstConfiguracoes::completionIsSwitchedAtOnce()
{
    const QString prompt = yesOrNo(text(answers[1].prompt));
    QVERIFY(core::AutoCompletar);
    boxes_->input(prompt, u"n"_s).information(done);
    ask(u"itmConfigAutoComplete"_s);
    QVERIFY(!core::AutoCompletar);
    boxes_->input(prompt, u"s"_s).information(done);
    ask(u"itmConfigAutoComplete"_s);
    QVERIFY(core::AutoCompletar);
}

void TstConfiguracoes::theFormsOfPaymentSwitchCompletionToo()
{
    const QString prompt = yesOrNo(text(answers[5].prompt));
    boxes_->input(prompt, u"N"_s).information(done);
    ask(u"itmConfigPrintFormaPagtoOs"_s);
    QVERIFY(!core::AutoCompletar);
    isStored(u"AutoComplete"_s, u"S"_s); // the setting itself stands
    boxes_->input(prompt, u"S"_s).information(done);
    ask(u"itmConfigPrintFormaPagtoOs"_s);
    QVERIFY(core::AutoCompletar);
}

void TstConfiguracoes::theReminderAsksForItsDays_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("15") << u"15"_s << u"15"_s;
    QTest::newRow("the integer part") << u"7,9"_s << u"7"_s;
    QTest::newRow("the integer part below zero") << u"-7,9"_s << u"-7"_s;
    QTest::newRow("nothing but decimals") << u"-0,5"_s << u"0"_s;
    QTest::newRow("an exponent") << u"1e2"_s << u"100"_s;
}

void TstConfiguracoes::theReminderAsksForItsDays()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, stored);
    program_->config(u"AvisaBackup"_s, u"N"_s);
    const QString prompt = yesOrNo(text(reminder.prompt));
    boxes_->inputKeep(prompt, u"N"_s).information(done);
    ask(u"itmConfigAvisaBackup"_s);
    boxes_->input(prompt, u"s"_s).inputKeep(days, u"7"_s).information(done);
    ask(u"itmConfigAvisaBackup"_s);
    isStored(u"AvisaBackup"_s, u"S"_s);
    isStored(u"BackupDias"_s, u"7"_s);
    boxes_->inputKeep(prompt, u"S"_s).input(days, typed).information(done);
    ask(u"itmConfigAvisaBackup"_s);
    isStored(u"BackupDias"_s, stored);
}

void TstConfiguracoes::theReminderChangesNothingWithoutDays_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *typed : {"", "sete", "7 dias", "1e999"}) {
        QTest::newRow(typed) << QString::fromLatin1(typed);
    }
}

void TstConfiguracoes::theReminderChangesNothingWithoutDays()
{
    QFETCH(const QString, typed);
    program_->config(u"AvisaBackup"_s, u"N"_s);
    const QByteArray before = file();
    boxes_->input(yesOrNo(text(reminder.prompt)), u"S"_s).input(days, typed);
    ask(u"itmConfigAvisaBackup"_s);
    boxes_->input(yesOrNo(text(reminder.prompt)), u"S"_s).inputCancel(days);
    ask(u"itmConfigAvisaBackup"_s);
    QCOMPARE(file(), before);
}

void TstConfiguracoes::theReminderIsSwitchedOffAlone()
{
    boxes_->input(yesOrNo(text(reminder.prompt)), u"n"_s).information(done);
    ask(u"itmConfigAvisaBackup"_s);
    isStored(u"AvisaBackup"_s, u"N"_s);
    isStored(u"BackupDias"_s, u"7"_s);
}

void TstConfiguracoes::writesToAReadOnlyFileAreLostInSilence()
{
    const QByteArray before = file();
    QVERIFY(QFile::setPermissions(program_->path(u"config.ini"_s), QFile::ReadOwner));
    boxes_->input(u"Digite o Telefone da Empresa"_s, u"3232-1010"_s).information(done);
    ask(u"itmConfigTelefone"_s);
    boxes_->input(yesOrNo(text(reminder.prompt)), u"S"_s).input(days, u"30"_s).information(done);
    ask(u"itmConfigAvisaBackup"_s);
    QCOMPARE(file(), before);
    QVERIFY(QFile::setPermissions(program_->path(u"config.ini"_s), QFile::ReadOwner | QFile::WriteOwner));
}

/// Nothing is offered, and what is answered is the file's first key.
void TstConfiguracoes::aMissingFileIsMadeAnew()
{
    QVERIFY(QFile::remove(program_->path(u"config.ini"_s)));
    boxes_->inputKeep(u"Digite o Telefone da Empresa"_s, {});
    ask(u"itmConfigTelefone"_s);
    QVERIFY(!QFile::exists(program_->path(u"config.ini"_s)));
    boxes_->input(u"Digite o Telefone da Empresa"_s, u"3232-1010"_s).information(done);
    ask(u"itmConfigTelefone"_s);
    QCOMPARE(file(), QByteArray("[Config]\r\nTelefone=" + scrambled(u"3232-1010"_s) + "\r\n"));
}

void TstConfiguracoes::aValueThatIsNotScrambledIsAskedAbout()
{
    core::GravaINI(u"Config"_s, u"Telefone"_s, u"$$$$"_s, false);
    boxes_->title({})
        .okCancel(u"Illegal Characters <$$$$> found"_s, QMessageBox::Warning, true)
        .inputKeep(u"Digite o Telefone da Empresa"_s, u"<<<"_s)
        .information(done);
    ask(u"itmConfigTelefone"_s);
    isStored(u"Telefone"_s, u"<<<"_s);
}

void TstConfiguracoes::noSettingSetsTheMode()
{
    core::ModoChamada = 77;
    boxes_->inputCancel(u"Digite o Telefone da Empresa"_s);
    ask(u"itmConfigTelefone"_s);
    QCOMPARE(core::ModoChamada, 77);
}

TARVELO_TEST_MAIN(TstConfiguracoes)
#include "tst_configuracoes.moc"
