#include "core/caminhos.h"
#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/error.h"
#include "platform/ui/form.h"
#include "platform/ui/wait.h"
#include "shell/frmMDI.h"
#include "shell/frmSplash.h"
#include "shell/instancia.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/diskfiles.h"
#include "support/modal.h"
#include "support/ordinaryuser.h"
#include "support/program.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace
{

/// What the splash shows when the login stands before it.
struct Seen {
    QString status;
    QString version;
    int bar = -1;
    bool visible = false;
    bool picture = false;
    bool waiting = true;
};

Seen look()
{
    ui::Form *splash = ui::Forms::instance().find(u"frmSplash"_s);
    return {.status = support::text(splash, u"lblStatus"_s),
            .version = support::text(splash, u"lblVersao"_s),
            .bar = support::control<QProgressBar>(splash, u"pnlBarra"_s)->value(),
            .visible = splash->isVisible(),
            .picture = support::control<QLabel>(splash, u"imgFundo"_s)->isVisible(),
            .waiting = QGuiApplication::overrideCursor() != nullptr};
}

QString openingError(const QString &file, bool readOnly)
{
    try {
        dao::DBEngine::OpenDatabase(file, readOnly);
    } catch (const runtime::RuntimeError &error) {
        return error.description();
    }
    return {};
}

void put(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// The beginning of one is all that the program looks at.
QByteArray genuineJet()
{
    return QByteArrayLiteral("\x00\x01\x00\x00Standard Jet DB\x00").leftJustified(4096, '\0');
}

/// Starts as the program does, looks as soon as the login is up, and takes the login away.
Seen start()
{
    Seen seen;
    support::whenShown(u"frmSenha"_s, [&seen] {
        seen = look();
        ui::Forms::instance().Unload(u"frmSenha"_s);
    });
    ui::Forms::instance().Load(u"frmSplash"_s);
    support::failNotShown();
    return seen;
}

} // namespace

/// Each case starts in an empty program folder that has only its folder DADOS.
class TestSplash : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }

    void init()
    {
        ui::Application::resetEnd();
        ui::setWaitFactor(0);
        folder_ = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(folder_->path()).mkdir(u"DADOS"_s));
        core::App::setPath(folder_->path());
        core::NomeEmpresa.clear();
        core::ArquivoINI.clear();
        core::ArquivoFundo.clear();
        core::ArquivoLogo.clear();
        core::AutoCompletar = false;
    }

    void cleanup()
    {
        shell::desmonta();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        folder_.reset();
    }

    void backgroundFollowsTheScreen_data()
    {
        QTest::addColumn<int>("twips");
        QTest::addColumn<QString>("file");
        QTest::newRow("1024 pixels") << 15360 << u"\\dados\\bg1024.bmp"_s;
        QTest::newRow("1280 pixels") << 19200 << u"\\dados\\bg1280.bmp"_s;
        QTest::newRow("800 pixels") << 12000 << u"\\dados\\bg800.bmp"_s;
        QTest::newRow("unknown") << 28800 << u"\\dados\\bg800.bmp"_s;
    }
    void backgroundFollowsTheScreen()
    {
        QFETCH(const int, twips);
        QTEST(shell::fundoDaTela(twips), "file");
    }

    void newInstallationStartsWithoutPostalCodes()
    {
        const Seen seen = start();
        QCOMPARE(seen.status, u"Inicializando Variáveis - Ok\n"
                              "Iniciando Banco de CEP's - Arquivo não encontrado!\n"
                              "Iniciando Banco de Dados - OK\n"_s);
        QCOMPARE(seen.version, u"Versão 2.1.34"_s);
        QCOMPARE(seen.bar, 100);
        QVERIFY(seen.visible);
        QVERIFY(!seen.waiting);
        QVERIFY(!core::DBCEP);
        QCOMPARE(core::Config(u"CEP"_s), u"On"_s);
    }

    void newInstallationGetsTheOperatorsTableAlone()
    {
        start();
        const auto tables = core::DBDados->TableDefs();
        QCOMPARE(tables.size(), 1U);
        QCOMPARE(tables.front().name(), u"Senha"_s);
        QVERIFY(QFile::exists(folder_->filePath(u"DADOS/DADOS.MDB"_s)));
    }

    void globalsAreSet()
    {
        start();
        const QString folder = core::App::Path();
        QCOMPARE(core::ArquivoINI, QString(folder + u"\\config.ini"));
        QCOMPARE(core::ArquivoLogo, QString(folder + u"\\dados\\logo.bmp"));
        QCOMPARE(core::ArquivoDB, QString(folder + u"\\DADOS\\DADOS.MDB"));
        QCOMPARE(core::ArquivoCEP, QString(folder + u"\\CEP.MDB"));
        QCOMPARE(core::ArquivoFundo, shell::fundoDaTela(QGuiApplication::primaryScreen()->size().width() * 15));
        QCOMPARE(core::NomeEmpresa, u"Tarvelo"_s);
        QVERIFY(core::AutoCompletar);
    }

    void settingsOfTheInstallationHold()
    {
        core::ArquivoINI = core::App::Path() + u"\\config.ini"_s;
        core::GravaINI(u"Config"_s, u"Nome"_s, u"OFICINA DO ZÉ"_s, true);
        core::GravaINI(u"Config"_s, u"AutoComplete"_s, u"N"_s, true);
        core::GravaINI(u"Config"_s, u"FileDB"_s, QString(core::App::Path() + u"\\dados\\outro.mdb"), false);
        start();
        QCOMPARE(core::NomeEmpresa, u"OFICINA DO ZÉ"_s);
        QVERIFY(!core::AutoCompletar);
        QVERIFY(QFile::exists(folder_->filePath(u"DADOS/outro.mdb"_s)));
    }

    void postalCodesAreOpened()
    {
        dao::DBEngine::CreateDatabase(folder_->filePath(u"CEP.MDB"_s), {})->Close();
        const Seen seen = start();
        QVERIFY(seen.status.contains(u"Iniciando Banco de CEP's - OK\n"));
        QVERIFY(core::DBCEP);
    }

    void postalCodesCanBeSwitchedOff()
    {
        core::ArquivoINI = core::App::Path() + u"\\config.ini"_s;
        core::GravaINI(u"Config"_s, u"CEP"_s, u"Off"_s, true);
        const Seen seen = start();
        QVERIFY(seen.status.contains(u"Iniciando Banco de CEP's - Desativado\n"));
    }

    void postalCodesThatFailAreSwitchedOff()
    {
        QFile file(folder_->filePath(u"CEP.MDB"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(4096, 'x'));
        file.close();
        const QString description = openingError(file.fileName(), true);

        const Seen seen = start();

        QVERIFY(!description.isEmpty());
        QVERIFY2(seen.status.contains(u"Iniciando Banco de CEP's - %1\n"_s.arg(description)), qPrintable(seen.status));
        QCOMPARE(core::Config(u"CEP"_s), u"Off"_s);
        QVERIFY(seen.status.endsWith(u"Iniciando Banco de Dados - OK\n"));
    }

    void databaseThatFailsEndsTheProgram()
    {
        QFile file(folder_->filePath(u"DADOS/DADOS.MDB"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(4096, 'x'));
        file.close();
        const QString description = openingError(file.fileName(), false);
        core::ArquivoINI = core::App::Path() + u"\\config.ini"_s;
        core::GravaINI(u"Config"_s, u"Nome"_s, u"OFICINA"_s, true);
        support::Boxes boxes;
        QVERIFY(!description.isEmpty());
        boxes.title(u"OFICINA"_s).critical(u"Não foi possível abrir o banco de dados do sistema.\r\n"_s + description);

        QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);

        boxes.finish();
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray(4096, 'x'));
    }

    /// Old data that somebody put in the place of the program's: the box says how they are brought over.
    void genuineJetFileIsToldWithWhatToDo()
    {
        const QString name = folder_->filePath(u"DADOS/DADOS.MDB"_s);
        const QByteArray bytes = genuineJet();
        put(name, bytes);
        support::Boxes boxes;
        boxes.critical(
            u"Não foi possível abrir o banco de dados do sistema.\r\nO arquivo '%1' não é um banco de dados "
            "reconhecido. É um banco de dados Jet (.MDB) genuíno e precisa ser convertido antes de ser usado.\n\nMude "
            "o nome dele para ANTIGO.MDB e execute na pasta dele:\n\ntarvelo-importa "
            "ANTIGO.MDB \"DADOS.MDB\"\n\nO manual ensina os passos, em \"Trazer os dados do sistema antigo\"."_s.arg(
                QDir::toNativeSeparators(name)));

        QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);

        boxes.finish();
        QCOMPARE(support::contentsOf(name), bytes);
        QCOMPARE(QDir(folder_->filePath(u"DADOS"_s)).entryList(QDir::Files), QStringList{u"DADOS.MDB"_s});
    }

    /// Postal codes are switched off, as for any file that fails; the line of the start has room for the reason alone.
    void genuineJetPostalCodesAreToldInALine()
    {
        put(folder_->filePath(u"CEP.MDB"_s), genuineJet());
        const Seen seen = start();
        QVERIFY2(seen.status.contains(u"É um banco de dados Jet (.MDB) genuíno e precisa ser convertido antes de ser "
                                      "usado.\nIniciando Banco de Dados - OK\n"_s),
                 qPrintable(seen.status));
        QCOMPARE(core::Config(u"CEP"_s), u"Off"_s);
    }

    void fileThatCannotBeCreatedIsToldWithItsFirstTable()
    {
        QVERIFY(QDir(folder_->path()).rmdir(u"DADOS"_s));
        support::Boxes boxes;
        boxes.critical(u"Erro na Criação da Tabela Senha\r\nObjeto não definido"_s);
        const Seen seen = start();
        boxes.finish();
        QVERIFY(seen.status.endsWith(u"Iniciando Banco de Dados - OK\n"));
    }

    void pictureIsShown()
    {
        QImage picture(560, 200, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        QVERIFY(picture.save(folder_->filePath(u"DADOS/splash.bmp"_s)));
        QVERIFY(start().picture);
    }

    void missingPictureIsPassedOver() { QVERIFY(!start().picture); }

    void secondInstanceIsRefused()
    {
        QVERIFY(!shell::OutraInstancia());
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s).exclamation(u"Este programa já está aberto.\nEsta instância será fechada..."_s);

        QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);

        boxes.finish();
        QVERIFY(!QFile::exists(folder_->filePath(u"config.ini"_s)));
    }

    /// A folder that can't be used is told in one box, and nothing is made in it or elsewhere.
    void folderWithLettersThatTheSettingsDoNotKeepIsRefused()
    {
        refusedIn(
            u"Οφιτσίνα"_s,
            u"O caminho da pasta tem letras ou sinais que as configurações não guardam.\n\nMude o programa para uma "
            "pasta cujo nome tenha somente letras, números e espaços."_s);
    }

    void folderWithALongPathIsRefused()
    {
        const qsizetype missing = 239 - folder_->path().size() - 1;
        refusedIn(QString(missing, u'x'), u"O caminho da pasta tem 239 caracteres e pode ter no máximo 238.\n\nMude o "
                                          "programa para uma pasta de caminho mais curto."_s);
    }

#ifdef Q_OS_UNIX
    void databaseInAFolderThatCanNotBeWrittenIsRefused()
    {
        start(); // makes it
        shell::desmonta();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString wanted = folder_->path();
        const auto onlyLook = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                              QFile::ReadOther | QFile::ExeOther;
        QVERIFY(QFile::setPermissions(wanted, onlyLook));
        const QStringList before = QDir(wanted).entryList(QDir::AllEntries);
        const QTemporaryDir users;
        QVERIFY(QFile::setPermissions(users.path(), QFile::Permissions(0x7777)));
        {
            const support::OrdinaryUser user;
            const QString elsewhere = users.filePath(u"tarvelo"_s);
            core::App::setPath(core::pastaDoPrograma(wanted, elsewhere));
            support::Boxes boxes;
            boxes.title(u"Tarvelo"_s)
                .critical(u"A pasta do programa não pode ser usada:\n"_s + wanted +
                          u"\n\nSeu usuário não tem permissão para gravar nesta pasta.\n\n"
                          "O banco de dados desta pasta não foi aberto e nenhum outro foi criado."_s);
            QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);
            boxes.finish();
        }
        QVERIFY(QDir(users.path()).isEmpty());
        QCOMPARE(QDir(wanted).entryList(QDir::AllEntries), before);
        QVERIFY(QFile::setPermissions(wanted, onlyLook | QFile::WriteOwner));
    }

    /// Nobody is at their other ends: to open one would be to wait for ever.
    void pipesInThePlaceOfPictureAndSettingsArePassedOver()
    {
        for (const QString &name :
             {u"DADOS/splash.bmp"_s, u"DADOS/bg800.bmp"_s, u"DADOS/logo.bmp"_s, u"config.ini"_s}) {
            QCOMPARE(::mkfifo(QFile::encodeName(folder_->filePath(name)).constData(), 0600), 0);
        }
        support::Boxes boxes;
        boxes.critical(u"Erro na Criação da Tabela Senha\r\nObjeto não definido"_s);
        const Seen seen = start();
        boxes.finish();
        QVERIFY(seen.visible);
        QVERIFY(!seen.picture);
    }
#endif

    void eachProgramFolderHasItsOwnInstance()
    {
        QVERIFY(!shell::OutraInstancia());
        QVERIFY(shell::OutraInstancia());
        const QTemporaryDir other;
        core::App::setPath(other.path());
        QVERIFY(!shell::OutraInstancia());
        shell::liberaInstancia();
    }

    void eachPauseLastsASecond()
    {
        ui::setWaitFactor(1);
        QElapsedTimer clock;
        clock.start();
        start();
        QVERIFY(clock.elapsed() >= 3000);
    }

    void newInstallationReachesTheMainWindow()
    {
        support::whenShown(u"frmSenha"_s, [] {
            ui::Form *login = ui::Forms::instance().find(u"frmSenha"_s);
            support::whenShown(u"frmSenhaManut"_s, [] {
                ui::Form *operators = ui::Forms::instance().find(u"frmSenhaManut"_s);
                for (const auto &[field, text] : {std::pair{u"txtCodigo"_s, u"1"_s},
                                                  {u"txtNome"_s, u"ANA"_s},
                                                  {u"txtSenha"_s, u"SEGRED"_s},
                                                  {u"txtConfirma"_s, u"SEGRED"_s}}) {
                    support::type(operators, field, text);
                }
                support::click(operators, u"btnIncluir"_s);
                support::click(operators, u"btnCancelar"_s);
            });
            support::click(login, u"btnManutencao"_s);
            support::type(login, u"txtCodigo"_s, u"01"_s, false);
            support::type(login, u"txtSenha"_s, u"SEGRED"_s, false);
        });

        ui::Forms::instance().Load(u"frmSplash"_s);

        support::failNotShown();
        QVERIFY(shell::principal().isVisible());
        QVERIFY(!ui::Forms::instance().find(u"frmSplash"_s));
        QVERIFY(!ui::Forms::instance().find(u"frmSenha"_s));
        QCOMPARE(core::CodOperador, 1);
        QCOMPARE(core::DBDados->TableDefs().size(), 21U);
        QVERIFY(!ui::Application::ended());
        shell::principal().close();
        QVERIFY(ui::Application::ended());
    }

    void cancelledLoginEndsTheProgram()
    {
        support::whenShown(u"frmSenha"_s,
                           [] { support::click(ui::Forms::instance().find(u"frmSenha"_s), u"btnCancelar"_s); });
        QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);
    }

    void closeButtonEndsTheProgramDuringAPause()
    {
        ui::setWaitFactor(1);
        support::whenShown(u"frmSplash"_s,
                           [] { support::click(ui::Forms::instance().find(u"frmSplash"_s), u"btnFechar"_s); });
        QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);
        QVERIFY(ui::Application::ended());
        QVERIFY(!core::DBDados);
    }

private:
    void refusedIn(const QString &name, const QString &problem)
    {
        const QString path = folder_->filePath(name);
        QVERIFY(QDir().mkpath(path + u"/DADOS"_s));
        core::App::setPath(path);
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s).critical(u"A pasta do programa não pode ser usada:\n"_s + path + u"\n\n"_s + problem);
        QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);
        boxes.finish();
        QVERIFY(!core::DBDados);
        QCOMPARE(QDir(path).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"DADOS"_s});
        QVERIFY(QDir(path + u"/DADOS"_s).isEmpty());
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

TARVELO_TEST_MAIN(TestSplash)
#include "tst_frmSplash.moc"
