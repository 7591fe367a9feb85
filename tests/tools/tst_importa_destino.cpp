// Where an imported database goes: what may stand there, what gives way and is kept, and what stops in the middle.
#include "support/ordinaryuser.h"
#include "support/otherprogram.h"
#include "tests/tools/importado.h"

#include <csignal>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using importa::Falha;
using importado::forAll;
using importado::Import;
using importado::put;
using runtime::Null;

namespace
{

const QString combos = u"Codigo.Integer,Texto.Text;250"_s;

/// A disk that takes no file larger than this.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

private:
    rlimit before_{};
    void (*handler_)(int);
};

class tst_importa_destino : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theSourceItself_data();
    void theSourceItself();
    void aTargetThatHoldsData_data();
    void aTargetThatHoldsData();
    void aTargetWithoutARowGivesWay();
    void aTargetThatIsReplacedIsKept();
    void aForeignTargetThatIsReplacedIsKeptAsItLies();
    void aJournalWithoutItsDatabaseIsNotPlayedIntoTheNewOne();
    void aTargetThatIsNoFile();
    void aTargetWithoutAFolder();
    void aFolderThatMayNotBeWritten();
    void theProgramIsOpen_data();
    void theProgramIsOpen();
    void theProgramOfAnotherDatabaseIsOpen();
    void theTargetIsBeingWritten_data();
    void theTargetIsBeingWritten();
    void aTargetThatGetsDataMeanwhile();
    void aFullDisk_data();
    void aFullDisk();
    void aFullDiskWhereTheOldOneIsKept();
    void anInterruption_data();
    void anInterruption();
    void whatAKillLeftIsCleared();

private:
    std::optional<Falha> failure() const
    {
        return importado::failureOf([this] { import_->run(); });
    }
    /// A database of the program at the target, with this row in it.
    void makeTarget(const QString &text = u"VELHO"_s) const
    {
        const auto made = importado::emptyWorkshop(import_->target());
        if (!text.isEmpty()) {
            made->Execute(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, '%1')"_s.arg(text));
        }
    }
    QStringList kept() const
    {
        return import_->files().filter(QRegularExpression(u"^novo/DADOS-antes-\\d{4}-\\d{2}-\\d{2}-\\d{6}\\.MDB$"_s));
    }

    std::unique_ptr<Import> import_;
};

void tst_importa_destino::init()
{
    import_ = std::make_unique<Import>();
    import_->table(u"Combos"_s, combos, {{{qint16{1}, u"NOVO"_s}}});
}

void tst_importa_destino::theSourceItself_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("by its name") << u"velho.mdb"_s;
    QTest::newRow("by another way") << u"novo/../velho.mdb"_s;
    QTest::newRow("by a link") << u"atalho.mdb"_s;
}

void tst_importa_destino::theSourceItself()
{
    QFETCH(const QString, name);
    import_->write();
    const QByteArray before = support::contentsOf(import_->source());
    QVERIFY(QFile::link(import_->source(), import_->beside(u"atalho.mdb"_s)));
    import_->request.destino = import_->beside(name);
    import_->request.substitui = true;
    QCOMPARE(importado::failureOf([this] { import_->import(); }), std::optional(Falha::MesmoArquivo));
    QCOMPARE(support::contentsOf(import_->source()), before);
    QCOMPARE(import_->files(), (QStringList{u"atalho.mdb"_s, u"velho.mdb"_s}));
}

void tst_importa_destino::aTargetThatHoldsData_data()
{
    QTest::addColumn<bool>("ours");
    QTest::newRow("a database of the program") << true;
    QTest::newRow("a file of another kind") << false;
}

void tst_importa_destino::aTargetThatHoldsData()
{
    QFETCH(const bool, ours);
    ours ? makeTarget() : put(import_->target(), "alguma coisa");
    const QByteArray before = support::contentsOf(import_->target());
    QCOMPARE(failure(), std::optional(Falha::DestinoComDados));
    QCOMPARE(support::contentsOf(import_->target()), before);
    QCOMPARE(import_->files(), (QStringList{u"novo/DADOS.MDB"_s, u"velho.mdb"_s}));
}

void tst_importa_destino::aTargetWithoutARowGivesWay()
{
    makeTarget({});
    QCOMPARE(import_->run().guardado, QString());
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"NOVO"_s});
    QVERIFY(QFile::remove(import_->target()));
    put(import_->target(), {});
    QCOMPARE(import_->run().guardado, QString());
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"NOVO"_s});
    QCOMPARE(import_->files(), (QStringList{u"novo/DADOS.MDB"_s, u"velho.mdb"_s}));
}

void tst_importa_destino::aTargetThatIsReplacedIsKept()
{
    makeTarget();
    import_->request.substitui = true;
    const auto result = import_->run();
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"NOVO"_s});
    QCOMPARE(kept().size(), 1);
    QCOMPARE(import_->beside(kept().front()), result.guardado);
    const auto old = dao::DBEngine::OpenDatabase(result.guardado);
    QCOMPARE(golden::rows(*old, u"SELECT Texto FROM Combos"_s), QStringList{u"VELHO"_s});
    QCOMPARE(import_->files().size(), 3);
}

void tst_importa_destino::aForeignTargetThatIsReplacedIsKeptAsItLies()
{
    const QByteArray bytes = QByteArray("alguma coisa").repeated(100);
    put(import_->target(), bytes);
    put(import_->target() + u"-journal"_s, "diário");
    import_->request.substitui = true;
    const auto result = import_->run();
    QCOMPARE(support::contentsOf(result.guardado), bytes);
    QCOMPARE(support::contentsOf(result.guardado + u"-journal"_s), QByteArray("diário"));
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"NOVO"_s});
    QCOMPARE(import_->files().size(), 4);
}

void tst_importa_destino::aJournalWithoutItsDatabaseIsNotPlayedIntoTheNewOne()
{
    makeTarget();
    const QByteArray old = support::contentsOf(import_->target());
    QVERIFY(QFile::remove(import_->target()));
    put(import_->target() + u"-journal"_s, old.left(3000));
    import_->run();
    QVERIFY(!QFileInfo::exists(import_->target() + u"-journal"_s));
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"NOVO"_s});
    QCOMPARE(import_->files().filter(u"-journal"_s).size(), 1);
}

void tst_importa_destino::aTargetThatIsNoFile()
{
    import_->request.destino = import_->beside(u"novo"_s);
    QCOMPARE(failure(), std::optional(Falha::DestinoNaoEArquivo));
}

void tst_importa_destino::aTargetWithoutAFolder()
{
    import_->request.destino = import_->beside(u"nenhuma/DADOS.MDB"_s);
    QCOMPARE(failure(), std::optional(Falha::DestinoSemPasta));
    QCOMPARE(import_->files(), QStringList{u"velho.mdb"_s});
}

void tst_importa_destino::aFolderThatMayNotBeWritten()
{
    import_->write();
    QVERIFY(QFile::setPermissions(import_->source(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    QVERIFY(QFile::setPermissions(import_->beside({}), forAll));
    QVERIFY(QFile::setPermissions(import_->beside(u"novo"_s), forAll & ~QFile::Permissions(QFile::WriteOwner)));
    {
        const support::OrdinaryUser user;
        QCOMPARE(importado::failureOf([this] { import_->import(); }), std::optional(Falha::DestinoSemPermissao));
    }
    QCOMPARE(import_->files(), QStringList{u"velho.mdb"_s});
    QVERIFY(QFile::setPermissions(import_->beside(u"novo"_s), forAll));
}

void tst_importa_destino::theProgramIsOpen_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("settings");
    QTest::newRow("in its usual place") << u"novo/DADOS/DADOS.MDB"_s << QString();
    QTest::newRow("in the program folder") << u"novo/DADOS.MDB"_s << QString();
    QTest::newRow("where the settings say") << u"novo/banco/oficina.mdb"_s << u"novo/banco/oficina.mdb"_s;
}

void tst_importa_destino::theProgramIsOpen()
{
    QFETCH(const QString, target);
    QFETCH(const QString, settings);
    import_->request.destino = import_->beside(target);
    QVERIFY(QDir().mkpath(QFileInfo(import_->request.destino).path()));
    put(import_->request.destino, {});
    if (!settings.isEmpty()) {
        put(import_->beside(u"novo/config.ini"_s),
            "[Config]\r\nFileDB=" + import_->beside(settings).toLatin1() + "\r\n");
    }
    import_->write();
    const QStringList before = import_->files();
    {
        // A lock of one's own process is none: another one has to hold it.
        QProcess holder;
        holder.start(QStringLiteral(TRAVA), {import_->beside(u"novo/tarvelo.lock"_s)});
        QVERIFY(holder.waitForReadyRead(30'000));
        QCOMPARE(importado::failureOf([this] { import_->import(); }), std::optional(Falha::DestinoEmUso));
        holder.closeWriteChannel();
        QVERIFY(holder.waitForFinished());
    }
    QVERIFY(QFile::exists(import_->beside(u"novo/tarvelo.lock"_s)));
    import_->import();
    QCOMPARE(import_->files().size(), before.size() + 1);
}

void tst_importa_destino::theProgramOfAnotherDatabaseIsOpen()
{
    QVERIFY(QDir(import_->beside(u"novo"_s)).mkdir(u"DADOS"_s));
    put(import_->beside(u"novo/DADOS/DADOS.MDB"_s), {});
    import_->request.destino = import_->beside(u"novo/teste.mdb"_s);
    QProcess holder;
    holder.start(QStringLiteral(TRAVA), {import_->beside(u"novo/tarvelo.lock"_s)});
    QVERIFY(holder.waitForReadyRead(30'000));
    import_->run();
    QVERIFY(QFile::exists(import_->request.destino));
    holder.closeWriteChannel();
    QVERIFY(holder.waitForFinished());
}

void tst_importa_destino::theTargetIsBeingWritten_data()
{
    QTest::addColumn<bool>("reserved");
    QTest::newRow("at the beginning of a write") << true;
    QTest::newRow("at its end") << false;
}

void tst_importa_destino::theTargetIsBeingWritten()
{
    QFETCH(const bool, reserved);
    makeTarget();
    const QByteArray before = support::contentsOf(import_->target());
    import_->request.substitui = true;
    support::OtherProgram other(import_->target());
    QVERIFY(other.hold(reserved ? support::Lock::Reserve : support::Lock::Take));
    QCOMPARE(failure(), std::optional(Falha::DestinoEmUso));
    other.giveBack();
    QCOMPARE(support::contentsOf(import_->target()), before);
    QCOMPARE(kept(), QStringList());
}

void tst_importa_destino::aTargetThatGetsDataMeanwhile()
{
    import_->write();
    bool made = false;
    const auto found = importado::failureOf([&] {
        import_->import([&](const importa::Passo &step) {
            if (step.fase == importa::Passo::Fase::Conferencia && !std::exchange(made, true)) {
                makeTarget();
            }
            return true;
        });
    });
    QCOMPARE(found, std::optional(Falha::DestinoComDados));
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"VELHO"_s});
    QCOMPARE(import_->files(), (QStringList{u"novo/DADOS.MDB"_s, u"velho.mdb"_s}));
}

void tst_importa_destino::aFullDisk_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("no byte") << 0;
    QTest::newRow("a page") << 4096;
    QTest::newRow("the schema") << 330'000;
    QTest::newRow("half of it") << 2'000'000;
}

void tst_importa_destino::aFullDisk()
{
    QFETCH(const int, room);
    makeTarget();
    import_->tables.front().rows = std::vector<jet4::Row>(20'000, jet4::Row{{qint16{1}, QString(200, u'X')}});
    import_->request.substitui = true;
    import_->write();
    const QStringList before = import_->files();
    {
        const SmallDisk disk(static_cast<rlim_t>(room));
        QCOMPARE(importado::failureOf([this] { import_->import(); }), std::optional(Falha::DiscoCheio));
    }
    QCOMPARE(import_->files(), before);
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"VELHO"_s});
}

void tst_importa_destino::aFullDiskWhereTheOldOneIsKept()
{
    const QByteArray large(3'000'000, 'X');
    put(import_->target(), large);
    import_->request.substitui = true;
    import_->write();
    {
        const SmallDisk disk(2'000'000);
        QVERIFY(importado::failureOf([this] { import_->import(); }).has_value());
    }
    QCOMPARE(import_->files(), (QStringList{u"novo/DADOS.MDB"_s, u"velho.mdb"_s}));
    QCOMPARE(support::contentsOf(import_->target()), large);
}

void tst_importa_destino::anInterruption_data()
{
    QTest::addColumn<int>("phase");
    QTest::addColumn<int>("rows");
    QTest::newRow("at the beginning") << 0 << 0;
    QTest::newRow("in the middle") << 0 << 2000;
    QTest::newRow("at the indexes") << 1 << 3000;
    QTest::newRow("at the examination") << 2 << 0;
}

void tst_importa_destino::anInterruption()
{
    QFETCH(const int, phase);
    QFETCH(const int, rows);
    import_->tables.front().rows = std::vector<jet4::Row>(3000, jet4::Row{{qint16{1}, u"X"_s}});
    makeTarget();
    import_->request.substitui = true;
    import_->write();
    const QStringList before = import_->files();
    const auto found = importado::failureOf([&] {
        import_->import(
            [&](const importa::Passo &step) { return static_cast<int>(step.fase) != phase || step.linhas != rows; });
    });
    QCOMPARE(found, std::optional(Falha::Interrompida));
    QCOMPARE(import_->files(), before);
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{u"VELHO"_s});
}

void tst_importa_destino::whatAKillLeftIsCleared()
{
    put(import_->target() + u".gravando-0123abcd"_s, "metade");
    put(import_->beside(u"novo/DADOS.MDB.gravando-do-usuario"_s), "do usuário");
    import_->run();
    QCOMPARE(import_->files(),
             (QStringList{u"novo/DADOS.MDB"_s, u"novo/DADOS.MDB.gravando-do-usuario"_s, u"velho.mdb"_s}));
}

} // namespace

QTEST_GUILESS_MAIN(tst_importa_destino)

#include "tst_importa_destino.moc"
