// The rows of registers, queries and ledgers come in the order that is asked for without being sorted.
#include "core/caminhos.h"
#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/dao/connection.h"
#include "platform/dao/database.h"
#include "platform/dao/file.h"
#include "support/otherprogram.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

class TestOrdens : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { core::DBDados.reset(); }

    void nothingIsSorted_data();
    void nothingIsSorted();
    void whatIsSearchedByAnotherColumnIsSorted_data();
    void whatIsSearchedByAnotherColumnIsSorted();
    void theNamesAreReadFromTheIndexAlone();
    void theLastRowOfAPartIsLookedUp();
    void anOlderFileGetsThem();
    void aFileThatIsLockedIsLeftAsItIs();

private:
    int ordens() const
    {
        return support::OtherProgram(core::DBDados->path())
            .count("SELECT count(*) FROM sqlite_schema WHERE type = 'index' AND name LIKE '%~>%'");
    }

    std::unique_ptr<QTemporaryDir> pasta_;
};

const auto aviso = [](const QString &) {};

void TestOrdens::init()
{
    pasta_ = std::make_unique<QTemporaryDir>();
    QDir(pasta_->path()).mkdir(u"DADOS"_s);
    core::App::setPath(pasta_->path());
    core::ArquivoINI = pasta_->filePath(u"config.ini"_s);
    core::ArquivoDB = pasta_->filePath(u"DADOS/DADOS.MDB"_s);
    core::AbreOuCriaBanco(aviso);
    core::CriarDB(aviso);
}

void TestOrdens::nothingIsSorted_data()
{
    QTest::addColumn<QString>("consulta");
    for (const auto *consulta : {
             u"SELECT * FROM Clientes ORDER BY Nome",
             u"SELECT * FROM Clientes WHERE Nome LIKE '*SILVA*' ORDER By Nome",
             u"SELECT * FROM Fornecedores ORDER BY Nome",
             u"SELECT * FROM pecas ORDER BY PS, Nome, MarcaModelo",
             u"SELECT * FROM Estoque WHERE CodPeca = 1 ORDER BY Codigo",
             u"SELECT * FROM Estoque WHERE CodPeca = 1 AND Data BetWEEN #01/01/2024# AND #12/31/2024# ORDER BY Data, "
             u"Codigo",
             u"SELECT * FROM Caixa Order By Codigo",
             u"SELECT * FROM Caixa ORDER BY Data, Codigo",
             u"SELECT * FROM Caixa WHERE Data BETWEEN #01/01/2024# AND #12/31/2024# ORDER BY Data, Codigo",
             u"SELECT * FROM Banco1 ORDER BY Data, Codigo",
             u"SELECT * FROM Banco2 ORDER BY Data, Codigo",
             u"SELECT * FROM ContasReceber WHERE Vencimento BETWEEN #01/01/2024# AND #12/31/2024# ORDER BY Vencimento, "
             u"Codigo",
             u"SELECT * FROM ContasPagar WHERE Vencimento BETWEEN #01/01/2024# AND #12/31/2024# ORDER BY Vencimento, "
             u"Codigo",
             u"SELECT * FROM Cheques ORDER BY Data, Codigo",
             u"SELECT * FROM ContaFiado ORDER BY CodCliente, Codigo",
             u"SELECT * FROM Orcamento ORDER By Codigo",
             u"SELECT * FROM NotasEntradas WHERE CodForn = 1 ORDER BY Codigo",
         }) {
        const QString texto = QStringView(consulta).toString();
        QTest::newRow(qPrintable(texto)) << texto;
    }
}

void TestOrdens::nothingIsSorted()
{
    QFETCH(const QString, consulta);
    const auto arquivo = dao::openFile(core::DBDados->path(), false);
    QVERIFY(!arquivo->plan(dao::tokenize(consulta), consulta)->sorted);
}

void TestOrdens::whatIsSearchedByAnotherColumnIsSorted_data()
{
    QTest::addColumn<QString>("consulta");
    QTest::newRow("text") << u"SELECT * FROM Clientes WHERE Endereco LIKE '*RUA*' ORDER By Nome"_s;
    QTest::newRow("date") << u"SELECT * FROM Clientes WHERE DataCadastro = #01/02/2024# ORDER By Nome"_s;
    QTest::newRow("number") << u"SELECT * FROM PECAS WHERE ControlaEstoque = True ORDER BY Nome"_s;
}

/// Two hundred thousand customers looked up one by one are not read at once.
void TestOrdens::whatIsSearchedByAnotherColumnIsSorted()
{
    QFETCH(const QString, consulta);
    const auto arquivo = dao::openFile(core::DBDados->path(), false);
    QVERIFY(arquivo->plan(dao::tokenize(consulta), consulta)->sorted);
}

void TestOrdens::theNamesAreReadFromTheIndexAlone()
{
    const auto arquivo = dao::openFile(core::DBDados->path(), false);
    const QString consulta = u"SELECT * FROM Clientes ORDER BY Nome"_s;
    const auto plano = arquivo->plan(dao::tokenize(consulta), consulta);
    dao::Prepared explica(arquivo->handle(), "EXPLAIN QUERY PLAN " + plano->keys.sql());
    QVERIFY(explica.step());
    const QString passo = std::get<QString>(explica.value(3));
    QVERIFY2(passo.contains(u"USING COVERING INDEX Clientes~>Nome"_s), qPrintable(passo));
}

/// Not among all rows of the part.
void TestOrdens::theLastRowOfAPartIsLookedUp()
{
    const auto arquivo = dao::openFile(core::DBDados->path(), false);
    const QString consulta =
        u"SELECT Codigo FROM Pecas WHERE (Select last(estoque) from Estoque where CodPeca = Pecas.Codigo) < 1"_s;
    const auto plano = arquivo->plan(dao::tokenize(consulta), consulta);
    dao::Prepared explica(arquivo->handle(), "EXPLAIN QUERY PLAN " + plano->keys.sql());
    QStringList passos;
    while (explica.step()) {
        passos << std::get<QString>(explica.value(3));
    }
    QVERIFY2(plano->keys.sql().contains("DESC LIMIT 1)"), plano->keys.sql().constData());
    QCOMPARE(passos.size(), 3); // nothing is sorted
    QVERIFY2(passos.last().contains(u"USING INDEX Estoque~>CodPeca (CodPeca=?)"_s), qPrintable(passos.last()));
}

void TestOrdens::anOlderFileGetsThem()
{
    const int todas = ordens();
    QCOMPARE(todas, 12);
    for (const auto *tabela : {u"Clientes", u"Caixa"}) {
        const QString nome = QStringView(tabela).toString();
        core::DBDados->Execute(u"DROP TABLE "_s + nome);
    }
    QString campos = u"Codigo.Counter,Nome.Text;200"_s;
    QVERIFY(core::CriaTabela(u"Clientes"_s, campos, aviso));
    core::DBDados->Execute(u"INSERT INTO Clientes (Nome) VALUES ('BIA')"_s);
    core::DBDados->Execute(u"INSERT INTO Clientes (Nome) VALUES ('ANA')"_s);
    QCOMPARE(ordens(), todas - 2);
    core::CriarDB(aviso);
    QCOMPARE(ordens(), todas);
    core::CriarDB(aviso);
    QCOMPARE(ordens(), todas);
    auto linhas = core::DBDados->OpenRecordset(u"SELECT * FROM Clientes ORDER BY Nome"_s);
    QCOMPARE(linhas.value(u"Nome"), runtime::Value(u"ANA"_s));
}

/// The program starts all the same, and one wait is enough.
void TestOrdens::aFileThatIsLockedIsLeftAsItIs()
{
    const int todas = ordens();
    core::DBDados->Execute(u"DROP TABLE Caixa"_s);
    core::DBDados->Execute(u"DROP TABLE Clientes"_s);
    QString campos = u"Codigo.Counter,Nome.Text;200"_s;
    QVERIFY(core::CriaTabela(u"Clientes"_s, campos, aviso));
    QString caixa = u"Codigo.Counter,Data.Date,CodOs.Long"_s;
    QVERIFY(core::CriaTabela(u"Caixa"_s, caixa, aviso));
    dao::DBEngine::SetLockWait(std::chrono::milliseconds(200));
    support::OtherProgram outro(core::DBDados->path());
    QVERIFY(outro.reserve());
    QStringList avisos;
    core::CriarDB([&](const QString &texto) { avisos.append(texto); });
    QCOMPARE(avisos, QStringList());
    outro.giveBack();
    QCOMPARE(ordens(), todas - 2);
    dao::DBEngine::SetLockWait(dao::DBEngine::longestLockWait);
    core::CriarDB(aviso);
    QCOMPARE(ordens(), todas);
}

} // namespace

QTEST_GUILESS_MAIN(TestOrdens)

#include "tst_ordens.moc"
