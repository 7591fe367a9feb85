// Which table and column of a genuine Jet file goes where, and which is left out.
#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/dao/databasedraft.h"
#include "tests/dao/golden.h"
#include "tools/importa/esquema.h"

#include <QTest>

using namespace Qt::StringLiterals;
using importa::Conteudo;
using importa::Motivo;

namespace
{

jet::Column column(const QString &name, int type = jet::Text, int size = 50)
{
    return {.name = name, .type = type, .size = type == jet::Text ? size : 0};
}

jet::Table table(const QString &name, const std::vector<jet::Column> &columns, qint64 rows = 3)
{
    return {.name = name, .columns = columns, .promisedRows = rows};
}

jet::Table combos(const QString &name = u"Combos"_s)
{
    return table(name, {column(u"Codigo"_s, jet::Integer), column(u"Texto"_s)});
}

QString word(Motivo reason)
{
    static const QStringList words{u"Desconhecida"_s, u"Repetida"_s, u"SemTipo"_s, u"Ilegivel"_s, u"DeTrabalho"_s};
    return words[static_cast<int>(reason)];
}

class tst_importa_esquema : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theTablesAreThoseOfANewInstallation();
    void theOriginBookIsMadeWhereTheSourceHasIt();
    void theProgramsOwnDatabaseAndSettingsStay();
    void tablesAreFoundWhateverTheirCase();
    void columnsAreFoundByNameWhateverTheirOrder();
    void anOlderTableLacksColumns();
    void anUnknownTableIsLeftOut();
    void anUnknownTableIsKeptWhenAllIsAskedFor();
    void anUnknownColumnIsLeftOut();
    void anUnknownColumnIsKeptBehindTheProgramsOwn();
    void aKeptColumnOfEveryType();
    void aSecondCounterBecomesALong();
    void aPictureHasNoColumn();
    void aTableOfPicturesIsLeftOut();
    void aSecondTableOfOneNameIsLeftOut();
    void aSecondColumnOfOneNameIsLeftOut();
    void namesThatCanNotBeGivenAreLeftOut();
    void theScratchTableOfAReportIsLeftOut();
    void aDamagedDefinitionOfTheProgramsIsAFailure();
    void aDamagedDefinitionOfAnotherIsLeftOut();
    void theContentsAreKnownByTheTables();
    void postalCodesHaveTheirOwnTable();

private:
    std::vector<importa::Copia> plan(const std::vector<jet::Table> &source, bool all = false);
    dao::TableDef made(const QString &name) const;
    QStringList fieldsOf(const QString &name) const;
    QStringList leftOut(const QString &table) const;
    const importa::Tabela &found(const QString &name) const;

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<dao::DatabaseDraft> draft_;
    importa::Resultado result_;
};

void tst_importa_esquema::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    draft_ = std::make_unique<dao::DatabaseDraft>(folder_->filePath(u"novo.mdb"_s));
    result_ = {};
}

void tst_importa_esquema::cleanup()
{
    draft_.reset();
    folder_.reset();
}

std::vector<importa::Copia> tst_importa_esquema::plan(const std::vector<jet::Table> &source, bool all)
{
    return importa::MontaEsquema(draft_->database(), source, {.origem = {}, .destino = {}, .tudo = all}, result_);
}

dao::TableDef tst_importa_esquema::made(const QString &name) const
{
    for (const dao::TableDef &one : draft_->database()->TableDefs()) {
        if (one.name() == name) {
            return one;
        }
    }
    return dao::TableDef(QString());
}

QStringList tst_importa_esquema::fieldsOf(const QString &name) const
{
    QStringList names;
    const dao::TableDef table = made(name);
    for (const dao::Field &field : table.fields()) {
        names.append(field.name);
    }
    return names;
}

const importa::Tabela &tst_importa_esquema::found(const QString &name) const
{
    static const importa::Tabela none;
    for (const importa::Tabela &one : result_.tabelas) {
        if (one.nome == name) {
            return one;
        }
    }
    return none;
}

/// "Coluna: motivo" of what is left out of a table.
QStringList tst_importa_esquema::leftOut(const QString &table) const
{
    QStringList told;
    for (const auto &[name, reason] : found(table).colunasFora) {
        told.append(name + u": "_s + word(reason));
    }
    return told;
}

void tst_importa_esquema::theTablesAreThoseOfANewInstallation()
{
    plan({combos()});
    QStringList names;
    for (const dao::TableDef &one : draft_->database()->TableDefs()) {
        names.append(one.name());
    }
    QStringList expected = core::TabelasDoPrograma();
    QCOMPARE(expected.size(), 22);
    QCOMPARE(expected.takeLast(), u"LivroOrigem"_s);
    QCOMPARE(names, expected);
    QCOMPARE(fieldsOf(u"Veiculos"_s).last(), u"Chassi"_s);
    QVERIFY(!found(u"Clientes"_s).naOrigem);
    QVERIFY(found(u"Clientes"_s).doPrograma);
    QVERIFY(!found(u"Clientes"_s).fora);
}

void tst_importa_esquema::theOriginBookIsMadeWhereTheSourceHasIt()
{
    const auto copies = plan({table(u"LIVROORIGEM"_s, {column(u"Duplicata"_s, jet::Single)})});
    QCOMPARE(made(u"LivroOrigem"_s).fields().back().type, dao::FieldType::Single);
    QCOMPARE(copies.size(), size_t{1});
    QCOMPARE(copies.front().destino.name(), u"LivroOrigem"_s);
}

void tst_importa_esquema::theProgramsOwnDatabaseAndSettingsStay()
{
    const auto own = golden::createDatabase(*folder_);
    core::DBDados = own;
    core::ArquivoINI = folder_->filePath(u"config.ini"_s);
    plan({combos()});
    QCOMPARE(core::DBDados, own);
    QCOMPARE(core::ArquivoINI, folder_->filePath(u"config.ini"_s));
    QCOMPARE(own->TableDefs().size(), size_t{0});
    core::DBDados.reset();
    core::ArquivoINI.clear();
}

void tst_importa_esquema::tablesAreFoundWhateverTheirCase()
{
    const auto copies = plan({combos(u"COMBOS"_s), combos(u"senha"_s)});
    QCOMPARE(copies.size(), size_t{2});
    QCOMPARE(copies[0].destino.name(), u"Senha"_s);
    QCOMPARE(copies[0].daOrigem, size_t{1});
    QCOMPARE(copies[1].destino.name(), u"Combos"_s);
    QCOMPARE(copies[1].daOrigem, size_t{0});
    QCOMPARE(result_.tabelas[copies[1].noResultado].nome, u"Combos"_s);
    QCOMPARE(result_.tabelas[copies[1].noResultado].prometidas, 3);
}

void tst_importa_esquema::columnsAreFoundByNameWhateverTheirOrder()
{
    const auto copies = plan({table(u"Combos"_s, {column(u"TEXTO"_s), column(u"codigo"_s, jet::Integer)})});
    const auto &sources = copies.front().fontes;
    QCOMPARE(sources.size(), size_t{2});
    QCOMPARE(sources[0]->coluna, 1);
    QVERIFY(sources[0]->ehNumero);
    QCOMPARE(sources[1]->coluna, 0);
    QVERIFY(!sources[1]->ehNumero);
    QCOMPARE(found(u"Combos"_s).colunasAusentes, QStringList());
}

void tst_importa_esquema::anOlderTableLacksColumns()
{
    const auto copies = plan({table(u"Pecas"_s, {column(u"Codigo"_s, jet::Long), column(u"Nome"_s)})});
    QVERIFY(found(u"Pecas"_s).colunasAusentes.contains(u"ICMS"_s));
    QVERIFY(found(u"Pecas"_s).colunasAusentes.contains(u"CodExterno"_s));
    QCOMPARE(found(u"Pecas"_s).colunasAusentes.size(), 10);
    QVERIFY(!copies.front().fontes.back());
}

void tst_importa_esquema::anUnknownTableIsLeftOut()
{
    const auto copies = plan({table(u"Agenda"_s, {column(u"Nome"_s)}), combos()});
    QCOMPARE(copies.size(), size_t{1});
    QCOMPARE(result_.tabelas.back().nome, u"Agenda"_s);
    QCOMPARE(word(result_.tabelas.back().fora.value()), u"Desconhecida"_s);
    QVERIFY(!result_.tabelas.back().doPrograma);
    QCOMPARE(fieldsOf(u"Agenda"_s), QStringList());
}

void tst_importa_esquema::anUnknownTableIsKeptWhenAllIsAskedFor()
{
    jet::Column code = column(u"Número"_s, jet::Long);
    code.counter = true;
    const auto copies =
        plan({table(u"Agenda de Serviços"_s, {code, column(u"Nome"_s, jet::Text, 30)}), combos()}, true);
    QCOMPARE(copies.size(), size_t{2});
    QVERIFY(!result_.tabelas.back().fora);
    const dao::TableDef kept = made(u"Agenda de Serviços"_s);
    QCOMPARE(kept.fields().size(), size_t{2});
    QVERIFY(kept.fields()[0].isCounter());
    QCOMPARE(kept.fields()[0].name, u"Número"_s);
    QCOMPARE(kept.fields()[1].size, 30);
    QCOMPARE(copies.back().fontes[1]->coluna, 1);
}

void tst_importa_esquema::anUnknownColumnIsLeftOut()
{
    plan({table(u"Combos"_s, {column(u"Codigo"_s, jet::Integer), column(u"Cor"_s), column(u"Texto"_s)})});
    QCOMPARE(leftOut(u"Combos"_s), QStringList{u"Cor: Desconhecida"_s});
    QCOMPARE(fieldsOf(u"Combos"_s), (QStringList{u"Codigo"_s, u"Texto"_s}));
}

void tst_importa_esquema::anUnknownColumnIsKeptBehindTheProgramsOwn()
{
    const auto copies = plan({table(u"Combos"_s, {column(u"Minha Cor"_s, jet::Text, 7), column(u"Texto"_s),
                                                  column(u"Codigo"_s, jet::Integer)})},
                             true);
    QCOMPARE(fieldsOf(u"Combos"_s), (QStringList{u"Codigo"_s, u"Texto"_s, u"Minha Cor"_s}));
    QCOMPARE(made(u"Combos"_s).fields().back().size, 7);
    QCOMPARE(found(u"Combos"_s).colunasMantidas, QStringList{u"Minha Cor"_s});
    QCOMPARE(copies.front().fontes[2]->coluna, 0);
    QCOMPARE(leftOut(u"Combos"_s), QStringList());
}

void tst_importa_esquema::aKeptColumnOfEveryType()
{
    std::vector<jet::Column> columns;
    for (const int type : {1, 2, 3, 4, 5, 6, 7, 8, 10, 12}) {
        columns.push_back(column(u"Tipo %1"_s.arg(type), type));
    }
    plan({table(u"Combos"_s, columns), table(u"Outra"_s, columns)}, true);
    for (const QString &name : {u"Combos"_s, u"Outra"_s}) {
        const auto fields = made(name).fields();
        QCOMPARE(fields.size(), name == u"Outra" ? size_t{10} : size_t{12});
        for (const dao::Field &field : fields) {
            QVERIFY2(!field.name.startsWith(u"Tipo") || field.name == u"Tipo %1"_s.arg(static_cast<int>(field.type)),
                     qPrintable(field.name));
        }
    }
}

void tst_importa_esquema::aSecondCounterBecomesALong()
{
    jet::Column counter = column(u"Contador"_s, jet::Long);
    counter.counter = true;
    plan({table(u"Caixa"_s, {counter}), table(u"Outra"_s, {column(u"A"_s), counter})}, true);
    QVERIFY(!made(u"Caixa"_s).fields().back().isCounter());
    QCOMPARE(made(u"Caixa"_s).fields().back().type, dao::FieldType::Long);
    QVERIFY(made(u"Outra"_s).fields().back().isCounter());
}

void tst_importa_esquema::aPictureHasNoColumn()
{
    const std::vector<jet::Table> source{table(
        u"Combos"_s, {column(u"Texto"_s, jet::Ole), column(u"Foto"_s, jet::Ole), column(u"Codigo"_s, jet::Integer)})};
    plan(source);
    QCOMPARE(leftOut(u"Combos"_s), (QStringList{u"Texto: SemTipo"_s, u"Foto: Desconhecida"_s}));
    QCOMPARE(found(u"Combos"_s).colunasAusentes, QStringList{u"Texto"_s});
    cleanup();
    init();
    plan(source, true);
    QCOMPARE(leftOut(u"Combos"_s), (QStringList{u"Texto: SemTipo"_s, u"Foto: SemTipo"_s}));
}

void tst_importa_esquema::aTableOfPicturesIsLeftOut()
{
    plan({combos(), table(u"Fotos"_s, {column(u"Foto"_s, jet::Ole)})}, true);
    QCOMPARE(word(result_.tabelas.back().fora.value()), u"Ilegivel"_s);
}

void tst_importa_esquema::aSecondTableOfOneNameIsLeftOut()
{
    const auto copies = plan({combos(), combos(u"COMBOS"_s), combos(u"Nova"_s), combos(u"NOVA"_s)}, true);
    QCOMPARE(copies.size(), size_t{2});
    QCOMPARE(word(found(u"COMBOS"_s).fora.value()), u"Repetida"_s);
    QCOMPARE(word(found(u"NOVA"_s).fora.value()), u"Repetida"_s);
}

void tst_importa_esquema::aSecondColumnOfOneNameIsLeftOut()
{
    for (const bool all : {false, true}) {
        cleanup();
        init();
        plan({table(u"Combos"_s, {column(u"Texto"_s), column(u"TEXTO"_s)}),
              table(u"Nova"_s, {column(u"Ação"_s), column(u"AÇÃO"_s)})},
             all);
        QCOMPARE(leftOut(u"Combos"_s), QStringList{u"TEXTO: Repetida"_s});
        QCOMPARE(leftOut(u"Nova"_s), all ? QStringList{u"AÇÃO: Repetida"_s} : QStringList());
    }
}

void tst_importa_esquema::namesThatCanNotBeGivenAreLeftOut()
{
    const auto copies =
        plan({combos(u"sqlite_x"_s), table(u"Combos"_s, {column(u"_rowid_"_s), column(u"Texto"_s), column(u"a]b"_s)}),
              table(u"Vazia"_s, {})},
             true);
    QCOMPARE(word(found(u"sqlite_x"_s).fora.value()), u"Ilegivel"_s);
    QCOMPARE(word(found(u"Vazia"_s).fora.value()), u"Ilegivel"_s);
    QCOMPARE(leftOut(u"Combos"_s), (QStringList{u"_rowid_: Ilegivel"_s, u"a]b: Ilegivel"_s}));
    QCOMPARE(copies.size(), size_t{1});
    QCOMPARE(copies.front().fontes.size(), copies.front().destino.fields().size());
}

void tst_importa_esquema::theScratchTableOfAReportIsLeftOut()
{
    plan({combos(), table(u"RelaPecas"_s, {column(u"Total"_s, jet::Single)})}, true);
    QCOMPARE(word(found(u"RelaPecas"_s).fora.value()), u"DeTrabalho"_s);
    QCOMPARE(fieldsOf(u"RelaPecas"_s), QStringList());
}

void tst_importa_esquema::aDamagedDefinitionOfTheProgramsIsAFailure()
{
    jet::Table damaged = table(u"clientes"_s, {});
    damaged.readable = false;
    try {
        plan({damaged});
        QFAIL("it was taken");
    } catch (const importa::Erro &error) {
        QCOMPARE(static_cast<int>(error.falha()), static_cast<int>(importa::Falha::TabelaDanificada));
        QCOMPARE(error.dados().tabela, u"clientes"_s);
        QCOMPARE(error.dados().prometidas, 3);
    }
}

void tst_importa_esquema::aDamagedDefinitionOfAnotherIsLeftOut()
{
    jet::Table damaged = table(u"Agenda"_s, {});
    damaged.readable = false;
    plan({combos(), damaged}, true);
    QCOMPARE(word(found(u"Agenda"_s).fora.value()), u"Ilegivel"_s);
}

void tst_importa_esquema::theContentsAreKnownByTheTables()
{
    const jet::Table codes = table(u"ceps"_s, {column(u"CEP"_s)});
    const jet::Table other = table(u"Agenda"_s, {column(u"Nome"_s)});
    QVERIFY(importa::ConteudoDe({other, combos(u"CAIXA"_s)}) == Conteudo::Oficina);
    QVERIFY(importa::ConteudoDe({codes, combos(u"Senha"_s)}) == Conteudo::Oficina);
    QVERIFY(importa::ConteudoDe({codes, other}) == Conteudo::Postais);
    QVERIFY(importa::ConteudoDe({other}) == Conteudo::Nenhum);
    QVERIFY(importa::ConteudoDe({}) == Conteudo::Nenhum);
}

void tst_importa_esquema::postalCodesHaveTheirOwnTable()
{
    result_.postais = true;
    const auto copies = plan({table(u"CEPS"_s, {column(u"Rua"_s), column(u"CEP"_s, jet::Long)})});
    QCOMPARE(draft_->database()->TableDefs().size(), size_t{1});
    QCOMPARE(fieldsOf(u"CEPS"_s), (QStringList{u"CEP"_s, u"Tipo"_s, u"Rua"_s, u"Bairro"_s, u"Cidade"_s, u"Estado"_s}));
    runtime::Value code(qint32{1001000});
    QVERIFY(!copies.front().fontes[0]->conversor.converte(code));
    QVERIFY(code == runtime::Value(u"01001000"_s));
}

} // namespace

QTEST_GUILESS_MAIN(tst_importa_esquema)

#include "tst_importa_esquema.moc"
