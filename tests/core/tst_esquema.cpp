#include "core/banco.h"
#include "core/config.h"
#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/errors.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using dao::FieldType;
using support::errorOf;

namespace
{

/// One row of the schema: table, field, type, characters.
using Linha = QStringList;

std::vector<Linha> esquemaEsperado()
{
    QFile arquivo(QStringLiteral(TARVELO_TESTS_DIR "/core/esquema.tsv"));
    if (!arquivo.open(QIODevice::ReadOnly)) {
        qFatal("esquema.tsv");
    }
    std::vector<Linha> linhas;
    for (const QString &linha : QString::fromUtf8(arquivo.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (!linha.startsWith(u'#')) {
            linhas.push_back(linha.split(u'\t'));
        }
    }
    return linhas;
}

QString nomeDoTipo(const dao::Field &campo)
{
    if (campo.isCounter()) {
        return campo.type == FieldType::Long ? u"Counter"_s : u"Counter?"_s;
    }
    switch (campo.type) {
    case FieldType::Boolean:
        return u"Boolean"_s;
    case FieldType::Integer:
        return u"Integer"_s;
    case FieldType::Long:
        return u"Long"_s;
    case FieldType::Single:
        return u"Single"_s;
    case FieldType::Double:
        return u"Double"_s;
    case FieldType::Date:
        return u"Date"_s;
    case FieldType::Text:
        return u"Text"_s;
    case FieldType::Byte:
        return u"Byte"_s;
    case FieldType::Currency:
        return u"Currency"_s;
    case FieldType::Memo:
        return u"Memo"_s;
    }
    return {};
}

QStringList camposDe(const QString &tabela)
{
    QStringList campos;
    for (const dao::TableDef &definicao : core::DBDados->TableDefs()) {
        if (definicao.name() == tabela) {
            for (const dao::Field &campo : definicao.fields()) {
                campos << campo.name + u' ' + nomeDoTipo(campo) +
                              (campo.type == FieldType::Text ? u" %1"_s.arg(campo.size) : QString());
            }
        }
    }
    return campos;
}

QStringList esperadosDe(const QString &tabela)
{
    QStringList campos;
    for (const Linha &linha : esquemaEsperado()) {
        if (linha[0] == tabela) {
            campos << linha[1] + u' ' + linha[2] + (linha[3].isEmpty() ? QString() : u' ' + linha[3]);
        }
    }
    return campos;
}

QStringList tabelas()
{
    QStringList nomes;
    for (const dao::TableDef &tabela : core::DBDados->TableDefs()) {
        nomes << tabela.name();
    }
    return nomes;
}

const QStringList ordemDasTabelas{
    u"Senha"_s,         u"Combos"_s,        u"Clientes"_s,  u"Veiculos"_s, u"Pecas"_s,      u"Fornecedores"_s,
    u"Estoque"_s,       u"OrdemServico"_s,  u"OSPecas"_s,   u"Caixa"_s,    u"Banco1"_s,     u"Banco2"_s,
    u"ContasReceber"_s, u"ContasPagar"_s,   u"Cheques"_s,   u"Fiados"_s,   u"ContaFiado"_s, u"Orcamento"_s,
    u"OrcaPecas"_s,     u"NotasEntradas"_s, u"NotasPecas"_s};

} // namespace

class TestEsquema : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void createsAnAbsentFileWithTheOperatorsTableAlone();
    void createsTheOtherTablesAtTheMainWindow();
    void createsEachFieldAsTold_data();
    void createsEachFieldAsTold();
    void createsTheOriginBookOnlyForItsCustomisation();
    void createsTheOriginBookWhenItIsAskedFor();
    void makesTheLastFieldOfTheOriginBookASingle();
    void changesNothingAtTheNextStart();
    void opensAnExistingFileAsItIs();
    void upgradesAnOlderFileAtTheEndOfItsTables();
    void keepsTheRowsOfAnUpgradedFile();
    void takesATableThatOnlyBeginsWithTheNameForTheTable();
    void reportsAFolderThatIsMissingWithTheOperatorsTable();
    void raisesAFileThatIsNoDatabase();
    void goesOnAfterATableThatFails();

    void createsATableFromItsFieldList();
    void emptiesTheCallersList_data();
    void emptiesTheCallersList();
    void readsTypeWordsWhateverTheirCase();
    void keepsTypeAndSizeOfTheFieldBeforeForAnUnknownType();
    void takesAnyTypeWithASizeForText();
    void failsOnAFieldListThatIsWrong_data();
    void failsOnAFieldListThatIsWrong();

    void readsASingleValue_data();
    void readsASingleValue();
    void givesNothingForALookUpThatFails();
    void writesEmptyTextsAsNull();
    void readsNullAsEmpty();
    void readsTruthValuesOfEveryType();

private:
    void abre();
    void cria();

    std::unique_ptr<QTemporaryDir> pasta_;
    QStringList avisos_;
    core::AvisoCritico aviso_;
};

void TestEsquema::init()
{
    pasta_ = std::make_unique<QTemporaryDir>();
    QVERIFY(pasta_->isValid());
    QVERIFY(QDir(pasta_->path()).mkpath(u"DADOS"_s));
    core::App::setPath(pasta_->path());
    core::ArquivoINI = pasta_->path() + u"\\config.ini"_s;
    core::ArquivoDB = pasta_->path() + u"\\dados\\DADOS.MDB"_s;
    core::CarregaConfig();
    core::ArquivoDB = pasta_->path() + u"\\dados\\DADOS.MDB"_s;
    avisos_.clear();
    aviso_ = [this](const QString &texto) { avisos_ << texto; };
}

void TestEsquema::cleanup()
{
    if (core::DBDados) {
        core::DBDados->Close();
        core::DBDados.reset();
    }
}

void TestEsquema::abre()
{
    core::AbreOuCriaBanco(aviso_);
}

void TestEsquema::cria()
{
    abre();
    core::CriarDB(aviso_);
    QCOMPARE(avisos_, QStringList());
}

// --- opening and upgrading

void TestEsquema::createsAnAbsentFileWithTheOperatorsTableAlone()
{
    abre();
    QVERIFY(QFile::exists(pasta_->filePath(u"DADOS/DADOS.MDB"_s)));
    QCOMPARE(tabelas(), QStringList{u"Senha"_s});
    QCOMPARE(avisos_, QStringList());
}

void TestEsquema::createsTheOtherTablesAtTheMainWindow()
{
    cria();
    QCOMPARE(tabelas(), ordemDasTabelas);
}

void TestEsquema::createsEachFieldAsTold_data()
{
    QTest::addColumn<QString>("tabela");
    for (const QString &tabela : ordemDasTabelas) {
        QTest::newRow(qPrintable(tabela)) << tabela;
    }
    QTest::newRow("LivroOrigem") << u"LivroOrigem"_s;
}

void TestEsquema::createsEachFieldAsTold()
{
    core::GravaINI(u"Config"_s, u"Personalizacao"_s, u"1-1"_s, true);
    cria();
    QFETCH(const QString, tabela);
    QVERIFY(!esperadosDe(tabela).isEmpty());
    QCOMPARE(camposDe(tabela), esperadosDe(tabela));
}

void TestEsquema::createsTheOriginBookOnlyForItsCustomisation()
{
    cria();
    QVERIFY(!tabelas().contains(u"LivroOrigem"_s));
    core::GravaINI(u"Config"_s, u"Personalizacao"_s, u"2-2"_s, true);
    core::CriarDB(aviso_);
    QVERIFY(!tabelas().contains(u"LivroOrigem"_s));
    core::GravaINI(u"Config"_s, u"Personalizacao"_s, u"1-1"_s, true);
    core::CriarDB(aviso_);
    QCOMPARE(tabelas().last(), u"LivroOrigem"_s);
}

/// Once: what stands in it stays.
void TestEsquema::createsTheOriginBookWhenItIsAskedFor()
{
    cria();
    core::CriaLivroOrigem(aviso_);
    QCOMPARE(tabelas().last(), u"LivroOrigem"_s);
    core::DBDados->Execute(u"INSERT INTO LivroOrigem (Origem) VALUES ('BALCAO')"_s);
    core::CriaLivroOrigem(aviso_);
    QCOMPARE(avisos_, QStringList());
    QVERIFY(!core::DBDados->OpenRecordset(u"LivroOrigem"_s).Eof());
}

void TestEsquema::makesTheLastFieldOfTheOriginBookASingle()
{
    core::GravaINI(u"Config"_s, u"Personalizacao"_s, u"1-1"_s, true);
    cria();
    QCOMPARE(camposDe(u"LivroOrigem"_s).last(), u"Duplicata Single"_s);
}

void TestEsquema::changesNothingAtTheNextStart()
{
    cria();
    const QStringList antes = tabelas();
    cleanup();
    cria();
    QCOMPARE(tabelas(), antes);
    for (const QString &tabela : antes) {
        QCOMPARE(camposDe(tabela), esperadosDe(tabela));
    }
}

void TestEsquema::opensAnExistingFileAsItIs()
{
    dao::DBEngine::CreateDatabase(pasta_->filePath(u"DADOS/DADOS.MDB"_s), u";LANGID=0x0409;CP=1252;COUNTRY=0"_s)
        ->Close();
    abre();
    QCOMPARE(tabelas(), QStringList());
    QCOMPARE(avisos_, QStringList());
}

namespace
{

/// The tables as the first releases had them: without the fields that the upgrades add.
void criaArquivoAntigo(const core::AvisoCritico &aviso)
{
    const std::vector<std::pair<QString, QString>> antigas{
        {u"Pecas"_s, u"Codigo.Counter,Nome.Text;200,PS.text;1,UM.Integer"_s},
        {u"ContasReceber"_s, u"Codigo.Counter,Valor.Single"_s},
        {u"Caixa"_s, u"Codigo.Counter,Saldo.Single"_s},
        {u"OrdemServico"_s, u"Codigo.Counter,Valor.Single"_s},
        {u"Veiculos"_s, u"Codigo.Counter,Placas.text;10"_s},
    };
    for (const auto &[nome, lista] : antigas) {
        QString campos = lista;
        QVERIFY(core::CriaTabela(nome, campos, aviso));
    }
}

} // namespace

void TestEsquema::upgradesAnOlderFileAtTheEndOfItsTables()
{
    abre();
    criaArquivoAntigo(aviso_);
    core::CriarDB(aviso_);
    QCOMPARE(avisos_, QStringList());
    QCOMPARE(camposDe(u"Pecas"_s),
             (QStringList{u"Codigo Counter"_s, u"Nome Text 200"_s, u"PS Text 1"_s, u"UM Integer"_s,
                          u"CodExterno Text 20"_s, u"ICMS Long"_s, u"ClassFiscal Text 20"_s}));
    QCOMPARE(camposDe(u"ContasReceber"_s).last(), u"CodOS Long"_s);
    QCOMPARE(camposDe(u"Caixa"_s).last(), u"CodOs Long"_s);
    QCOMPARE(camposDe(u"OrdemServico"_s).mid(2), (QStringList{u"Descricao Text 255"_s, u"Mecanico Text 200"_s}));
    QCOMPARE(camposDe(u"Veiculos"_s).last(), u"Chassi Text 50"_s);
    core::CriarDB(aviso_);
    QCOMPARE(camposDe(u"Pecas"_s).size(), 7);
}

void TestEsquema::keepsTheRowsOfAnUpgradedFile()
{
    abre();
    criaArquivoAntigo(aviso_);
    core::DBDados->Execute(u"INSERT INTO Pecas (Nome, PS, UM) VALUES ('VELA', 'P', 0)"_s);
    core::CriarDB(aviso_);
    QCOMPARE(core::LocalizaCampo(u"Nome"_s, u"Pecas"_s, u"Codigo = 1"_s), u"VELA"_s);
    core::DBDados->Execute(u"UPDATE Pecas SET CodExterno = 'X1' WHERE Codigo = 1"_s);
    QCOMPARE(core::LocalizaCampo(u"Codigo"_s, u"Pecas"_s, u"CodExterno = 'x1'"_s), u"1"_s);
}

void TestEsquema::takesATableThatOnlyBeginsWithTheNameForTheTable()
{
    abre();
    QString campos = u"Codigo.Counter"_s;
    QVERIFY(core::CriaTabela(u"ESTOQUE2"_s, campos, aviso_));
    core::CriarDB(aviso_);
    QVERIFY(!tabelas().contains(u"Estoque"_s));
    QVERIFY(tabelas().contains(u"OrdemServico"_s));
    QCOMPARE(avisos_, QStringList());
}

void TestEsquema::reportsAFolderThatIsMissingWithTheOperatorsTable()
{
    core::ArquivoDB = pasta_->path() + u"\\ausente\\DADOS.MDB"_s;
    abre();
    QCOMPARE(avisos_.size(), 1);
    QVERIFY2(avisos_[0].startsWith(u"Erro na Criação da Tabela Senha\r\n"_s), qPrintable(avisos_[0]));
    QVERIFY(!avisos_[0].endsWith(u'\n'));
}

void TestEsquema::raisesAFileThatIsNoDatabase()
{
    QFile arquivo(pasta_->filePath(u"DADOS/DADOS.MDB"_s));
    QVERIFY(arquivo.open(QIODevice::WriteOnly));
    QVERIFY(arquivo.write(QByteArray(5000, 'x')) > 0);
    arquivo.close();
    QCOMPARE(errorOf([&] { abre(); }), 3343);
    QCOMPARE(avisos_, QStringList());
}

void TestEsquema::goesOnAfterATableThatFails()
{
    core::DBDados.reset();
    core::CriarDB(aviso_);
    QCOMPARE(avisos_.size(), 20);
    QCOMPARE(avisos_.first(), u"Erro na Criação da Tabela Combos\r\nObjeto não definido"_s);
    QVERIFY(avisos_.last().startsWith(u"Erro na Criação da Tabela NotasPecas"_s));
}

// --- field lists

void TestEsquema::createsATableFromItsFieldList()
{
    abre();
    QString campos = u"Codigo.Counter,Nome.Text;30,Ativo.Boolean,N.Integer,L.Long,V.Single,Quando.Date"_s;
    QVERIFY(core::CriaTabela(u"Prova"_s, campos, aviso_));
    QCOMPARE(camposDe(u"Prova"_s), (QStringList{u"Codigo Counter"_s, u"Nome Text 30"_s, u"Ativo Boolean"_s,
                                                u"N Integer"_s, u"L Long"_s, u"V Single"_s, u"Quando Date"_s}));
}

void TestEsquema::emptiesTheCallersList_data()
{
    QTest::addColumn<QString>("lista");
    QTest::newRow("good") << u"Codigo.Counter,Nome.Text;30"_s;
    QTest::newRow("bad in the middle") << u"Codigo.Counter,Nome.Text,Outro.Text;30"_s;
}

void TestEsquema::emptiesTheCallersList()
{
    abre();
    QFETCH(QString, lista);
    core::CriaTabela(u"Prova"_s, lista, aviso_);
    QCOMPARE(lista, QString());
}

void TestEsquema::readsTypeWordsWhateverTheirCase()
{
    abre();
    QString campos = u"A.counter,B.TEXT;5,C.single,D.DATE"_s;
    QVERIFY(core::CriaTabela(u"Prova"_s, campos, aviso_));
    QCOMPARE(camposDe(u"Prova"_s), (QStringList{u"A Counter"_s, u"B Text 5"_s, u"C Single"_s, u"D Date"_s}));
}

void TestEsquema::keepsTypeAndSizeOfTheFieldBeforeForAnUnknownType()
{
    abre();
    QString campos = u"A.Text;17,B.Texto,C.Long,D.Longo"_s;
    QVERIFY(core::CriaTabela(u"Prova"_s, campos, aviso_));
    QCOMPARE(camposDe(u"Prova"_s), (QStringList{u"A Text 17"_s, u"B Text 17"_s, u"C Long"_s, u"D Long"_s}));
}

void TestEsquema::takesAnyTypeWithASizeForText()
{
    abre();
    QString campos = u"A.Single;12,B.;7"_s;
    QVERIFY(core::CriaTabela(u"Prova"_s, campos, aviso_));
    QCOMPARE(camposDe(u"Prova"_s), (QStringList{u"A Text 12"_s, u"B Text 7"_s}));
}

void TestEsquema::failsOnAFieldListThatIsWrong_data()
{
    QTest::addColumn<QString>("lista");
    QTest::addColumn<int>("erro");
    QTest::newRow("text without a size") << u"A.Long,B.Text"_s << 3421;
    QTest::newRow("text with a size that is no number") << u"A.Text;x"_s << 3421;
    QTest::newRow("unknown type at the start") << u"A.Longo"_s << 3421;
    QTest::newRow("no type") << u"A"_s << 5;
}

void TestEsquema::failsOnAFieldListThatIsWrong()
{
    abre();
    QFETCH(QString, lista);
    QFETCH(const int, erro);
    QVERIFY(!core::CriaTabela(u"Prova"_s, lista, aviso_));
    QCOMPARE(avisos_, QStringList{u"Erro na Criação da Tabela Prova\r\n"_s + runtime::errorText(erro)});
    QVERIFY(!tabelas().contains(u"Prova"_s));
}

// --- single values

void TestEsquema::readsASingleValue_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("condicao");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("a text") << u"Nome"_s << u"Codigo = 2"_s << u"BIA"_s;
    QTest::newRow("a count") << u"count(Codigo)"_s << u"Codigo = Codigo"_s << u"3"_s;
    QTest::newRow("the first row of an order") << u"Nome"_s << u"1=1 ORDER BY Codigo DESC"_s << u"CAIO"_s;
    QTest::newRow("no row") << u"Nome"_s << u"Codigo = 9"_s << QString();
    QTest::newRow("Null") << u"Acessos"_s << u"Codigo = 1"_s << QString();
    QTest::newRow("a truth value") << u"Admin"_s << u"Codigo = 1"_s << u"True"_s;
    QTest::newRow("an unknown column") << u"Apelido"_s << u"Codigo = 1"_s << QString();
    QTest::newRow("a broken condition") << u"Nome"_s << u"Codigo = "_s << QString();
}

void TestEsquema::readsASingleValue()
{
    abre();
    for (const QString &linha : {u"1, 'ANA', True"_s, u"2, 'BIA', False"_s, u"3, 'CAIO', False"_s}) {
        core::DBDados->Execute(u"INSERT INTO Senha (Codigo, Nome, Admin) VALUES ("_s + linha + u")"_s);
    }
    QFETCH(const QString, campo);
    QFETCH(const QString, condicao);
    QTEST(core::LocalizaCampo(campo, u"Senha"_s, condicao), "esperado");
}

void TestEsquema::givesNothingForALookUpThatFails()
{
    abre();
    QCOMPARE(core::LocalizaCampo(u"Nome"_s, u"Ausente"_s, u"1=1"_s), QString());
    cleanup();
    QCOMPARE(core::LocalizaCampo(u"Nome"_s, u"Senha"_s, u"1=1"_s), QString());
}

void TestEsquema::writesEmptyTextsAsNull()
{
    QVERIFY(runtime::IsNull(core::ValorOuNulo(QString())));
    QCOMPARE(std::get<QString>(core::ValorOuNulo(u" "_s)), u" "_s);
}

void TestEsquema::readsNullAsEmpty()
{
    QCOMPARE(core::NuloParaVazio(runtime::Null{}), QString());
    QCOMPARE(core::NuloParaVazio(runtime::Empty{}), QString());
    QCOMPARE(core::NuloParaVazio(u"abc"_s), u"abc"_s);
    QCOMPARE(core::NuloParaVazio(qint16{12}), u"12"_s);
    QCOMPARE(core::NuloParaVazio(1.5F), u"1,5"_s);
    QCOMPARE(core::NuloParaVazio(runtime::CDate(u"02/03/2024"_s)), u"02/03/2024"_s);
}

void TestEsquema::readsTruthValuesOfEveryType()
{
    QVERIFY(core::Verdadeiro(true));
    QVERIFY(core::Verdadeiro(qint16{-1}));
    QVERIFY(!core::Verdadeiro(qint16{0}));
    QVERIFY(!core::Verdadeiro(false));
    QVERIFY(!core::Verdadeiro(runtime::Null{}));
}

QTEST_GUILESS_MAIN(TestEsquema)
#include "tst_esquema.moc"
