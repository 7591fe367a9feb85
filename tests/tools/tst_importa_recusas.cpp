// Files that are not imported: why, and that nothing has changed.
#include "support/ordinaryuser.h"
#include "tests/tools/importado.h"

using namespace Qt::StringLiterals;
using importa::Falha;
using importado::forAll;
using importado::Import;
using importado::put;
using runtime::Null;

namespace
{

const QString combos = u"Codigo.Integer,Texto.Text;250"_s;

class tst_importa_recusas : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aSourceThatIsNone_data();
    void aSourceThatIsNone();
    void aSourceThatMayNotBeRead();
    void aFileOfAnotherKind_data();
    void aFileOfAnotherKind();
    void aFileOfNoWorkshop();
    void fewerRowsThanPromised_data();
    void fewerRowsThanPromised();
    void aPageOfRowsThatIsDamaged();
    void aTruncatedFile();
    void aReaderThatIsNotThere();
    void aReaderThatTellsNothing();
    void aReaderThatTellsNonsense();

private:
    std::optional<Falha> failure() const
    {
        return importado::failureOf([this] { import_->run(); });
    }

    std::unique_ptr<Import> import_;
};

void tst_importa_recusas::init()
{
    import_ = std::make_unique<Import>();
    import_->table(u"Combos"_s, combos, {{{qint16{1}, u"NOVO"_s}}});
}

void tst_importa_recusas::aSourceThatIsNone_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<Falha>("failure");
    QTest::newRow("missing") << u"nada.mdb"_s << Falha::OrigemAusente;
    QTest::newRow("a folder") << u"novo"_s << Falha::OrigemNaoEArquivo;
}

void tst_importa_recusas::aSourceThatIsNone()
{
    QFETCH(const QString, source);
    QFETCH(const Falha, failure);
    import_->request.origem = import_->beside(source);
    QCOMPARE(importado::failureOf([this] { import_->import(); }), std::optional(failure));
    QCOMPARE(import_->files(), QStringList());
}

void tst_importa_recusas::aSourceThatMayNotBeRead()
{
    import_->write();
    QVERIFY(QFile::setPermissions(import_->beside({}), forAll));
    QVERIFY(QFile::setPermissions(import_->source(), QFile::Permissions()));
    const support::OrdinaryUser user;
    QCOMPARE(importado::failureOf([this] { import_->import(); }), std::optional(Falha::OrigemSemPermissao));
}

void tst_importa_recusas::aFileOfAnotherKind_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Falha>("failure");
    const std::vector<jet4::Table> tables{
        {.name = u"Combos"_s, .columns = jet4::columns(combos), .rows = {{{qint16{1}, u"A"_s}}}}};
    QTest::newRow("empty") << QByteArray() << Falha::NaoEJet;
    QTest::newRow("a text") << QByteArray("texto\r\n").repeated(1000) << Falha::NaoEJet;
    QTest::newRow("Jet 3") << jet4::bytes({.tables = tables, .version = 0}) << Falha::Jet3;
    QTest::newRow("later") << jet4::bytes({.tables = tables, .version = 2}) << Falha::FormatoPosterior;
    QTest::newRow("password") << jet4::bytes({.tables = tables, .password = u"segredo"_s}) << Falha::ComSenha;
    QTest::newRow("encrypted") << jet4::bytes({.tables = tables, .pageKey = 0x12345678}) << Falha::Criptografada;
    QTest::newRow("its first page alone") << jet4::bytes({.tables = tables}).left(4096) << Falha::Truncada;
    QTest::newRow("half a page") << jet4::bytes({.tables = tables}).chopped(2048) << Falha::Truncada;
}

void tst_importa_recusas::aFileOfAnotherKind()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const Falha, failure);
    put(import_->source(), bytes);
    importado::emptyWorkshop(import_->target());
    const QStringList before = import_->files();
    const auto found = importado::failureOf([this] { import_->import(); });
    QCOMPARE(found, std::optional(failure));
    QCOMPARE(import_->files(), before);
}

void tst_importa_recusas::aFileOfNoWorkshop()
{
    import_->tables.clear();
    import_->table(u"Agenda"_s, u"Nome.Text;30"_s, {{{u"A"_s}}});
    for (const bool all : {false, true}) {
        import_->request.tudo = all;
        QCOMPARE(failure(), std::optional(Falha::SemTabelas));
        QCOMPARE(import_->files(), QStringList{u"velho.mdb"_s});
    }
}

void tst_importa_recusas::fewerRowsThanPromised_data()
{
    QTest::addColumn<int>("promised");
    QTest::newRow("one more") << 2;
    QTest::newRow("none") << 0;
    QTest::newRow("many") << 1'000'000;
}

void tst_importa_recusas::fewerRowsThanPromised()
{
    QFETCH(const int, promised);
    import_->tables.back().promised = promised;
    importado::emptyWorkshop(import_->target());
    try {
        import_->run();
        QFAIL("it was taken");
    } catch (const importa::Erro &error) {
        QVERIFY(error.falha() == Falha::TabelaDanificada);
        QCOMPARE(error.dados().tabela, u"Combos"_s);
        QCOMPARE(error.dados().prometidas, promised);
        QCOMPARE(error.dados().lidas, 1);
    }
    QCOMPARE(import_->files(), (QStringList{u"novo/DADOS.MDB"_s, u"velho.mdb"_s}));
    QCOMPARE(import_->rows(u"SELECT * FROM Combos"_s), QStringList());
}

void tst_importa_recusas::aPageOfRowsThatIsDamaged()
{
    std::vector<jet4::Row> rows;
    for (int i = 0; i < 2000; ++i) {
        rows.push_back({{qint16{1}, QString(100, u'X')}});
    }
    import_->table(u"Senha"_s, u"Codigo.Integer,Nome.Text;50"_s, {});
    import_->tables.front().rows = rows;
    QByteArray bytes = jet4::bytes({.tables = import_->tables});
    const qsizetype text = bytes.indexOf(QByteArray(100, 'X')) / 4096 * 4096;
    QVERIFY(text > 0);
    bytes.replace(text + 3 * 4096, 4096, QByteArray(4096, '\x5A'));
    put(import_->source(), bytes);
    QCOMPARE(importado::failureOf([this] { import_->import(); }), std::optional(Falha::TabelaDanificada));
    QCOMPARE(import_->files(), QStringList{u"velho.mdb"_s});
}

void tst_importa_recusas::aTruncatedFile()
{
    std::vector<jet4::Row> rows(2000, jet4::Row{{qint16{1}, QString(100, u'X')}});
    import_->tables.front().rows = rows;
    const QByteArray bytes = jet4::bytes({.tables = import_->tables});
    for (qsizetype pages = 1; pages * 4096 < bytes.size(); pages += 3) {
        put(import_->source(), bytes.left(pages * 4096));
        QVERIFY2(importado::failureOf([this] { import_->import(); }).has_value(), qPrintable(QString::number(pages)));
        QCOMPARE(import_->files(), QStringList{u"velho.mdb"_s});
    }
}

void tst_importa_recusas::aReaderThatIsNotThere()
{
    import_->request.leitor = import_->beside(u"nenhum"_s);
    QCOMPARE(failure(), std::optional(Falha::LeitorNaoIniciou));
}

void tst_importa_recusas::aReaderThatTellsNothing()
{
    const QString program = import_->beside(u"mudo"_s);
    put(program, "#!/bin/sh\nexec sleep 600\n");
    QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
    import_->request.leitor = program;
    import_->request.silencio = std::chrono::milliseconds(200);
    QCOMPARE(failure(), std::optional(Falha::LeituraNaoTermina));
    QCOMPARE(import_->files(), (QStringList{u"mudo"_s, u"velho.mdb"_s}));
}

void tst_importa_recusas::aReaderThatTellsNonsense()
{
    const QString program = import_->beside(u"louco"_s);
    put(program, "#!/bin/sh\nexec head -c 100000 /dev/zero\n");
    QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
    import_->request.leitor = program;
    QCOMPARE(failure(), std::optional(Falha::CatalogoDanificado));
}

} // namespace

QTEST_GUILESS_MAIN(tst_importa_recusas)

#include "tst_importa_recusas.moc"
