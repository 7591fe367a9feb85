// What an import tells: its report, and the sentence for everything that may hinder it.
#include "support/diskfiles.h"
#include "support/otherprogram.h"
#include "support/program.h"
#include "support/testmain.h"
#include "tools/importa/explica.h"
#include "tools/importa/relatorio.h"

#include "core/modulo.h"
#include "platform/dao/database.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using importa::Achados;
using importa::Erro;
using importa::Falha;
using importa::Motivo;
using importa::Mudanca;
using importa::Relatorio;
using importa::Resultado;
using importa::Tabela;

Q_DECLARE_METATYPE(importa::Falha)
Q_DECLARE_METATYPE(importa::Mudanca)
Q_DECLARE_METATYPE(importa::Motivo)

namespace
{

Tabela table(const QString &name, qint64 rows)
{
    return {.nome = name, .doPrograma = true, .naOrigem = true, .prometidas = rows, .lidas = rows, .gravadas = rows};
}

Relatorio report(const Resultado &result)
{
    return {.origem = u"/antigo/ANTIGO.MDB"_s, .destino = u"/oficina/DADOS.MDB"_s, .resultado = result};
}

QString text(const Resultado &result)
{
    return importa::Texto(report(result), Achados::Todos);
}

/// The lines of the report under a heading, up to the next empty one.
QStringList part(const QString &whole, const QString &heading)
{
    const QStringList lines = whole.split(u'\n');
    QStringList found;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].startsWith(heading)) {
            for (++i; i < lines.size() && !lines[i].isEmpty(); ++i) {
                found.append(lines[i]);
            }
        }
    }
    return found;
}

} // namespace

class TestImportaRelatorio : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void tellsWhereFromWhereToAndWhen();
    void saysThatAllCameOver();
    void saysThatSomethingDidNot();
    void tellsTheRowsOfEachTable();
    void tellsWhatWasLeftOut_data();
    void tellsWhatWasLeftOut();
    void tellsWhatWasKept();
    void tellsWhatTheSourceHadNot();
    void tellsWhichTablesAreMissing();
    void tellsEachValueThatChanged_data();
    void tellsEachValueThatChanged();
    void tellsWhereValuesChanged();
    void tellsTheSums();
    void showsADifferenceBehindTheCents();
    void tellsTheLastBalances();
    void partsWithoutContentsAreNotThere();
    void tellsWhatTheAuditFinds();
    void theScreenPointsToTheFileForTheOtherFindings();
    void theFilePointsToTheAuditForWhatItDoesNotKeep();
    void postalCodesAreNotAudited();
    void aTargetThatCanNotBeAuditedIsTold();
    void standsBesideTheTargetInAFile();
    void aFolderInThePlaceOfTheFileIsTold();

    void everyFailureHasItsWords_data();
    void everyFailureHasItsWords();
    void aDamagedTableIsNamed();
    void aFailureOfTheProgramIsToldAsItIs();

private:
    std::unique_ptr<support::Program> program_;
};

void TestImportaRelatorio::tellsWhereFromWhereToAndWhen()
{
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 1));
    const QString whole = text(result);
    QVERIFY2(whole.startsWith(u"Importação de  /antigo/ANTIGO.MDB\n"
                              "         para  /oficina/DADOS.MDB\n"
                              "           em  15/05/2024 10:30:00\n\nResultado: "_s),
             qPrintable(whole));
    QVERIFY(!whole.contains(u"guardado em"_s));

    result.guardado = u"/oficina/DADOS-antes-2024-05-15-103000.MDB"_s;
    QVERIFY(text(result).contains(u"\nO banco que estava no destino foi guardado em:\n"
                                  "/oficina/DADOS-antes-2024-05-15-103000.MDB\n"_s));
}

void TestImportaRelatorio::saysThatAllCameOver()
{
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 1));
    QVERIFY(text(result).contains(u"\nResultado: tudo veio, como estava.\n"_s));
}

void TestImportaRelatorio::saysThatSomethingDidNot()
{
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 1));
    result.ocorrencias.push_back(
        {.tabela = u"Clientes"_s, .coluna = u"Nome"_s, .mudanca = Mudanca::Cortado, .quantas = 1});
    QVERIFY(
        text(result).contains(u"\nResultado: os dados vieram, mas nem tudo como estava.\nLeia abaixo o que ficou de "
                              "fora ou mudou.\n"_s));

    result.saldos.push_back({.tabela = u"Caixa"_s, .contas = 1, .origem = 1, .destino = 2, .diferentes = 1});
    QVERIFY(text(result).contains(u"Leia abaixo o que ficou de fora ou mudou, e os saldos.\n"_s));
}

void TestImportaRelatorio::tellsTheRowsOfEachTable()
{
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 200'000));
    result.tabelas.back().gravadas = 199'999;
    QCOMPARE(
        part(text(result), u"Linhas das tabelas"_s),
        QStringList{u"  Clientes                                     200.000           200.000           199.999"_s});
    QVERIFY(text(result).contains(
        u"\nLinhas das tabelas                           na origem             lidas          gravadas\n"_s));
}

void TestImportaRelatorio::tellsWhatWasLeftOut_data()
{
    QTest::addColumn<Motivo>("reason");
    QTest::addColumn<QString>("words");
    QTest::newRow("unknown") << Motivo::Desconhecida << u"o Tarvelo não a conhece; com --tudo ela vem junto"_s;
    QTest::newRow("twice") << Motivo::Repetida << u"há outra com o mesmo nome"_s;
    QTest::newRow("no such type") << Motivo::SemTipo
                                  << u"guarda figuras, bytes ou outro tipo que o banco do Tarvelo não tem"_s;
    QTest::newRow("damaged") << Motivo::Ilegivel << u"a definição dela está danificada ou tem um nome impossível"_s;
    QTest::newRow("a report's") << Motivo::DeTrabalho << u"é um rascunho dos relatórios, que o Tarvelo não usa"_s;
}

void TestImportaRelatorio::tellsWhatWasLeftOut()
{
    QFETCH(const Motivo, reason);
    QFETCH(const QString, words);
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 2));
    result.tabelas.back().colunasFora.push_back({.coluna = u"Foto"_s, .motivo = reason});
    result.tabelas.push_back({.nome = u"Agenda"_s, .naOrigem = true, .fora = reason, .prometidas = 1});
    QCOMPARE(part(text(result), u"Ficou de fora"_s),
             (QStringList{u"  Coluna Clientes.Foto: "_s + words, u"  Tabela Agenda (1 linha): "_s + words}));
    QCOMPARE(part(text(result), u"Linhas das tabelas"_s).size(), 1);
}

void TestImportaRelatorio::tellsWhatWasKept()
{
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 2));
    result.tabelas.back().colunasMantidas = {u"Apelido"_s, u"Time"_s};
    result.tabelas.push_back(table(u"Agenda"_s, 7));
    result.tabelas.back().doPrograma = false;
    QCOMPARE(part(text(result), u"Veio junto, sem que o Tarvelo o use"_s),
             (QStringList{u"  Colunas de Clientes: Apelido, Time"_s, u"  Tabela Agenda"_s}));
}

void TestImportaRelatorio::tellsWhatTheSourceHadNot()
{
    Resultado result;
    result.tabelas.push_back(table(u"Pecas"_s, 2));
    result.tabelas.back().colunasAusentes = {u"ICMS"_s, u"IPI"_s};
    const QString whole = text(result);
    QCOMPARE(part(whole, u"Não havia na origem"_s),
             QStringList{u"  Colunas de Pecas, que ficaram vazias: ICMS, IPI"_s});
    QVERIFY(whole.contains(u"\nResultado: tudo veio, como estava.\n"_s));
}

/// An old file may lack a table in good order, or because it is the wrong one.
void TestImportaRelatorio::tellsWhichTablesAreMissing()
{
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 2));
    result.tabelas.push_back({.nome = u"LivroOrigem"_s, .doPrograma = true});
    QString whole = text(result);
    QCOMPARE(part(whole, u"Não havia na origem"_s), QStringList{u"  Tabelas, que foram feitas vazias: LivroOrigem"_s});
    QVERIFY(
        whole.contains(u"\nResultado: tudo veio, como estava. O arquivo de origem não tinha 1 tabela do Tarvelo.\n"_s));
    QCOMPARE(part(whole, u"Linhas das tabelas"_s).size(), 1);

    for (int i = 1; i <= 12; ++i) {
        result.tabelas.push_back({.nome = u"TabelaNova%1"_s.arg(i), .doPrograma = true});
    }
    whole = text(result);
    QVERIFY(whole.contains(u"não tinha 13 tabelas do Tarvelo.\n"_s));
    const QStringList lines = part(whole, u"Não havia na origem"_s);
    QVERIFY(lines.size() >= 2 && lines[1].startsWith(u"      TabelaNova"_s));
    for (const QString &line : lines) {
        QVERIFY2(line.size() <= 90, qPrintable(line));
    }
    QCOMPARE(lines.join(u' ').simplified().count(u", "_s), 13); // one of the words, the others between the names
}

void TestImportaRelatorio::tellsEachValueThatChanged_data()
{
    QTest::addColumn<Mudanca>("change");
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("several");
    QTest::newRow("cut") << Mudanca::Cortado << u"1 texto cortado (não cabe inteiro na coluna)"_s
                         << u"1.500 textos cortados (não cabe inteiro na coluna)"_s;
    QTest::newRow("character") << Mudanca::Caractere << u"1 texto mudado (um sinal pela metade foi trocado)"_s
                               << u"1.500 textos mudados (um sinal pela metade foi trocado)"_s;
    QTest::newRow("rounded") << Mudanca::Arredondado << u"1 número arredondado (tem mais algarismos que a coluna)"_s
                             << u"1.500 números arredondados (tem mais algarismos que a coluna)"_s;
    QTest::newRow("no room") << Mudanca::SemLugar
                             << u"1 valor deixado vazio (número ou data além do que a coluna guarda)"_s
                             << u"1.500 valores deixados vazios (número ou data além do que a coluna guarda)"_s;
    QTest::newRow("no sense") << Mudanca::SemSentido << u"1 valor deixado vazio (não é número nem data)"_s
                              << u"1.500 valores deixados vazios (não é número nem data)"_s;
    QTest::newRow("damaged") << Mudanca::Ilegivel
                             << u"1 valor deixado vazio (não pôde ser lido, está danificado na origem)"_s
                             << u"1.500 valores deixados vazios (não pôde ser lido, está danificado na origem)"_s;
}

void TestImportaRelatorio::tellsEachValueThatChanged()
{
    QFETCH(const Mudanca, change);
    Resultado result;
    result.ocorrencias.push_back({.tabela = u"Clientes"_s, .coluna = u"Nome"_s, .mudanca = change, .quantas = 1});
    QTEST(part(text(result), u"Mudou ao vir"_s).value(0).mid(17), "one");
    result.ocorrencias.back().quantas = 1500;
    QTEST(part(text(result), u"Mudou ao vir"_s).value(0).mid(17), "several");
    QVERIFY(part(text(result), u"Mudou ao vir"_s).value(0).startsWith(u"  Clientes.Nome: "_s));
    QCOMPARE(part(text(result), u"Mudou ao vir"_s).value(1), u"      ... e mais 1.500"_s);
}

void TestImportaRelatorio::tellsWhereValuesChanged()
{
    Resultado result;
    result.ocorrencias.push_back({.tabela = u"Clientes"_s,
                                  .coluna = u"Obs"_s,
                                  .mudanca = Mudanca::Cortado,
                                  .quantas = 5,
                                  .lugares = {{.linha = 1234, .codigo = 12, .valor = u"DUAS\r\nLINHAS"_s},
                                              {.linha = 2, .codigo = std::nullopt, .valor = QString(61, u'X')},
                                              {.linha = 3, .codigo = std::nullopt, .valor = {}}}});
    QCOMPARE(part(text(result), u"Mudou ao vir"_s).mid(1),
             (QStringList{u"      linha 1.234, código 0012: DUAS LINHAS"_s,
                          u"      linha 2: "_s + QString(60, u'X') + u"..."_s, u"      linha 3"_s,
                          u"      ... e mais 2"_s}));
}

void TestImportaRelatorio::tellsTheSums()
{
    Resultado result;
    result.tabelas.push_back(table(u"Caixa"_s, 2));
    result.tabelas.back().somas = {{.coluna = u"Entrada"_s, .origem = 1234567.891, .destino = 1234567.891},
                                   {.coluna = u"Saida"_s, .origem = 10, .destino = 9.5},
                                   {.coluna = u"Saldo"_s, .origem = std::nullopt, .destino = 0}};
    QCOMPARE(
        part(text(result), u"Somas das colunas de valores"_s),
        (QStringList{u"  Caixa.Entrada                           1.234.567,89      1.234.567,89"_s,
                     u"  Caixa.Saida                                    10,00              9,50         DIFERENTE"_s,
                     u"  Caixa.Saldo                                        -              0,00"_s}));
}

void TestImportaRelatorio::showsADifferenceBehindTheCents()
{
    Resultado result;
    result.tabelas.push_back(table(u"Caixa"_s, 2));
    result.tabelas.back().somas = {{.coluna = u"Saldo"_s, .origem = 0.125, .destino = 0.1250001}};
    const QString line = part(text(result), u"Somas das colunas de valores"_s).value(0);
    QVERIFY2(line.contains(u" 0,125 "_s) && line.contains(u"0,1250001"_s) && line.endsWith(u"DIFERENTE"_s),
             qPrintable(line));
}

void TestImportaRelatorio::tellsTheLastBalances()
{
    Resultado result;
    result.saldos = {
        {.tabela = u"Caixa"_s, .contas = 1, .origem = -5.25, .destino = -5.25},
        {.tabela = u"ContaFiado"_s, .porDono = true, .contas = 12, .origem = 3, .destino = 4, .diferentes = 2}};
    QCOMPARE(
        part(text(result), u"Últimos saldos"_s),
        (QStringList{u"  Caixa                                          -5,25             -5,25"_s,
                     u"  ContaFiado (12 contas, soma)                    3,00              4,00      2 DIFERENTES"_s}));
}

void TestImportaRelatorio::partsWithoutContentsAreNotThere()
{
    Resultado result;
    result.tabelas.push_back(table(u"Senha"_s, 1));
    const QString whole = text(result);
    for (const QString &heading : {u"Ficou de fora"_s, u"Mudou ao vir"_s, u"Veio junto"_s, u"Não havia"_s,
                                   u"Últimos saldos"_s, u"Somas das"_s, u"Conferência"_s}) {
        QVERIFY2(!whole.contains(heading), qPrintable(heading));
    }
}

void TestImportaRelatorio::tellsWhatTheAuditFinds()
{
    program_->sql(u"INSERT INTO Caixa (Data, Entrada, Saldo) VALUES (#05/15/2024#, 5, 9)"_s);
    const QString target = core::DBDados->path();
    const Relatorio done = importa::RelatorioDe({.origem = u"ANTIGO.MDB"_s, .destino = target}, {});
    QVERIFY(done.conferencia);
    const QString whole = importa::Texto(done, Achados::Todos);
    QVERIFY2(whole.contains(u"\n\nConferência de "_s + QDir::toNativeSeparators(target)), qPrintable(whole));
    QVERIFY2(whole.contains(u"\nERRO  Saldos do Livro Caixa: 1 linha, 1 erro\n        Caixa, código 0001 de "_s),
             qPrintable(whole));
    QVERIFY(whole.contains(u"\nResultado: tudo veio, como estava.\n"_s)); // it was so in the source
}

void TestImportaRelatorio::theScreenPointsToTheFileForTheOtherFindings()
{
    for (int i = 0; i < 12; ++i) {
        program_->sql(u"INSERT INTO Caixa (Data, Entrada, Saldo, CodOs) VALUES (#05/15/2024#, 0, 0, 5)"_s);
    }
    const Relatorio done = importa::RelatorioDe({.origem = u"ANTIGO.MDB"_s, .destino = core::DBDados->path()}, {});
    const auto shown = [](const QString &whole) { return whole.count(u"cita a ordem de serviço 0005"_s); };
    const QString screen = importa::Texto(done, Achados::OsPrimeiros);
    QCOMPARE(shown(screen), 10);
    QVERIFY2(screen.contains(u"        ... e mais 2 (estão no arquivo do relatório)\n"_s), qPrintable(screen));
    const QString file = importa::Texto(done, Achados::Todos);
    QCOMPARE(shown(file), 12);
    QVERIFY(!file.contains(u"... e mais"_s));
}

void TestImportaRelatorio::theFilePointsToTheAuditForWhatItDoesNotKeep()
{
    QVERIFY(support::OtherProgram(core::DBDados->path())
                .run("INSERT INTO Caixa (Codigo, Data, Entrada, Saldo, CodOs) WITH RECURSIVE n (i) AS (SELECT 1 UNION "
                     "ALL SELECT i + 1 FROM n WHERE i < 1200) SELECT i, 45427, 0, 0, 5 FROM n"));
    const Relatorio done = importa::RelatorioDe({.origem = u"ANTIGO.MDB"_s, .destino = core::DBDados->path()}, {});
    const QString file = importa::Texto(done, Achados::Todos);
    QCOMPARE(file.count(u"cita a ordem de serviço 0005"_s), 1000);
    QVERIFY(file.contains(u"        ... e mais 200 (tarvelo-confere --tudo mostra todos)\n"_s));
}

void TestImportaRelatorio::postalCodesAreNotAudited()
{
    Resultado result;
    result.postais = true;
    result.tabelas.push_back(table(u"CEPS"_s, 3));
    const Relatorio done = importa::RelatorioDe({.origem = u"A.MDB"_s, .destino = u"CEP.MDB"_s}, result);
    QVERIFY(!done.conferencia);
    QVERIFY(!importa::Texto(done, Achados::Todos).contains(u"onfer"_s));
}

void TestImportaRelatorio::aTargetThatCanNotBeAuditedIsTold()
{
    const QString gone = program_->path(u"sumiu.mdb"_s);
    const Relatorio done = importa::RelatorioDe({.origem = u"A.MDB"_s, .destino = gone}, {});
    QVERIFY(importa::Texto(done, Achados::Todos)
                .endsWith(u"\nO banco feito não foi conferido: Não foi possível encontrar o arquivo '%1'.\n"_s.arg(
                    QDir::toNativeSeparators(gone))));
}

/// With the mark and the line ends by which every editor reads it.
void TestImportaRelatorio::standsBesideTheTargetInAFile()
{
    const QTemporaryDir folder;
    QCOMPARE(importa::ArquivoDoRelatorio(folder.filePath(u"DADOS.2005.MDB"_s)),
             folder.filePath(u"DADOS.2005-importacao.txt"_s));
    Resultado result;
    result.tabelas.push_back(table(u"Clientes"_s, 1));
    const Relatorio done{.origem = u"/A.MDB"_s, .destino = folder.filePath(u"DADOS.MDB"_s), .resultado = result};
    for (int i = 0; i < 2; ++i) { // the report of the last import stays
        QVERIFY(importa::GravaRelatorio(done));
        const QByteArray bytes = support::contentsOf(folder.filePath(u"DADOS-importacao.txt"_s));
        QVERIFY(bytes.startsWith("\xEF\xBB\xBFImporta\xC3\xA7\xC3\xA3o de  /A.MDB\r\n"));
        QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
        QCOMPARE(QString::fromUtf8(bytes).remove(u'\r'), importa::Texto(done, Achados::Todos));
    }
    QCOMPARE(support::filesOf(folder.path()), QStringList{u"DADOS-importacao.txt"_s});
}

void TestImportaRelatorio::aFolderInThePlaceOfTheFileIsTold()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(u"DADOS-importacao.txt/x"_s));
    const Relatorio done{.origem = u"/A.MDB"_s, .destino = folder.filePath(u"DADOS.MDB"_s), .resultado = {}};
    QVERIFY(!importa::GravaRelatorio(done));
}

void TestImportaRelatorio::everyFailureHasItsWords_data()
{
    QTest::addColumn<Falha>("failure");
    QTest::addColumn<QString>("words");
    const auto row = [](const char *name, Falha failure, const QString &words) {
        QTest::newRow(name) << failure << words;
    };
    row("no source", Falha::OrigemAusente, u"Não foi possível encontrar o arquivo de origem:\n/antigo/A.MDB\n"_s);
    row("a folder", Falha::OrigemNaoEArquivo, u"A origem não é um arquivo:\n/antigo/A.MDB\n"_s);
    row("no right", Falha::OrigemSemPermissao, u"O seu usuário não pode ler o arquivo de origem:\n/antigo/A.MDB\n"_s);
    row("no Jet", Falha::NaoEJet, u"O arquivo de origem não é um banco de dados Jet (.MDB):\n/antigo/A.MDB\n"_s);
    row("Jet 3", Falha::Jet3,
        u"O arquivo de origem está no formato Jet 3, que este programa não lê:\n/antigo/A.MDB\n"_s);
    row("later", Falha::FormatoPosterior,
        u"O arquivo de origem está em um formato mais novo que o Jet 4, que este programa não lê:\n/antigo/A.MDB\n"_s);
    row("password", Falha::ComSenha, u"O arquivo de origem tem uma senha:\n/antigo/A.MDB\n"_s);
    row("encrypted", Falha::Criptografada, u"O arquivo de origem está criptografado:\n/antigo/A.MDB\n"_s);
    row("truncated", Falha::Truncada, u"O arquivo de origem está incompleto:\n/antigo/A.MDB\n"_s);
    row("catalogue", Falha::CatalogoDanificado,
        u"O arquivo de origem está danificado, e a lista das suas tabelas não pode ser lida:\n/antigo/A.MDB\n"_s);
    row("table", Falha::TabelaDanificada, u"O arquivo de origem está danificado:\n/antigo/A.MDB\n"_s);
    row("endless", Falha::LeituraNaoTermina,
        u"O arquivo de origem está danificado, e a leitura dele não acaba:\n/antigo/A.MDB\n"_s);
    row("no tables", Falha::SemTabelas,
        u"O arquivo de origem não tem nenhuma das tabelas da oficina, nem CEPs:\n/antigo/A.MDB\n"_s);
    row("no reader", Falha::LeitorNaoIniciou,
        u"A parte do programa que lê o arquivo de origem não pôde ser iniciada.\n"_s);
    row("same file", Falha::MesmoArquivo, u"A origem e o destino são o mesmo arquivo:\n/oficina/D.MDB\n"_s);
    row("target is none", Falha::DestinoNaoEArquivo, u"O destino não é um arquivo:\n/oficina/D.MDB\n"_s);
    row("target holds data", Falha::DestinoComDados, u"O destino já tem dados:\n/oficina/D.MDB\n"_s);
    row("target in use", Falha::DestinoEmUso, u"O destino está em uso:\n/oficina/D.MDB\n"_s);
    row("no folder", Falha::DestinoSemPasta, u"A pasta do destino não existe:\n/oficina\n"_s);
    row("not writable", Falha::DestinoSemPermissao, u"Não foi possível gravar o destino:\n/oficina/D.MDB\n"_s);
    row("full disk", Falha::DiscoCheio, u"Não há espaço suficiente no disco:\n/oficina\n"_s);
    row("interrupted", Falha::Interrompida, u"A importação foi interrompida.\n"_s);
}

void TestImportaRelatorio::everyFailureHasItsWords()
{
    QFETCH(const Falha, failure);
    QFETCH(const QString, words);
    const QString said =
        importa::Explica(Erro(failure), {.origem = u"/antigo/A.MDB"_s, .destino = u"/oficina/D.MDB"_s});
    QVERIFY2(said.startsWith(words), qPrintable(said));
    QVERIFY2(said.endsWith(u"\n\nNada foi importado, e o destino continua como estava."_s), qPrintable(said));
    // what to do about it stands below, but where there is nothing to be done
    QCOMPARE(said.at(words.size()) == u'\n', failure == Falha::Interrompida);
}

void TestImportaRelatorio::aDamagedTableIsNamed()
{
    const auto said = [](Falha failure, qint64 promised, qint64 read) {
        const Erro error(failure, {.tabela = u"Caixa"_s, .prometidas = promised, .lidas = read});
        return importa::Explica(error, {.origem = u"/A.MDB"_s, .destino = u"/D.MDB"_s}).section(u'\n', 0, 0);
    };
    QCOMPARE(said(Falha::TabelaDanificada, 1200, 1),
             u"O arquivo de origem está danificado: a tabela 'Caixa' diz que tem 1.200 linhas, e 1 pôde ser lida:"_s);
    QCOMPARE(said(Falha::TabelaDanificada, 1, 0),
             u"O arquivo de origem está danificado: a tabela 'Caixa' diz que tem 1 linha, e 0 puderam ser lidas:"_s);
    QCOMPARE(said(Falha::TabelaDanificada, 7, 7),
             u"O arquivo de origem está danificado: a tabela 'Caixa' não pode ser lida inteira:"_s);
    QCOMPARE(said(Falha::LeituraNaoTermina, 7, 3),
             u"O arquivo de origem está danificado, e a leitura dele não acaba (tabela 'Caixa'):"_s);
}

void TestImportaRelatorio::aFailureOfTheProgramIsToldAsItIs()
{
    QCOMPARE(importa::Explica(Erro(Falha::Outra, {.detalhe = u"Um motivo %1."_s}), {}),
             u"Um motivo %1.\n\nNada foi importado, e o destino continua como estava."_s);
}

TARVELO_TEST_MAIN(TestImportaRelatorio)
#include "tst_importa_relatorio.moc"
