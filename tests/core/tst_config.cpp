#include "core/chavesjuntas.h"
#include "core/config.h"
#include "core/embaralha.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestConfig : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void scramblesKnownValues_data();
    void scramblesKnownValues();
    void shiftsCharacters_data();
    void shiftsCharacters();
    void breaksBase64AfterEach64Characters_data();
    void breaksBase64AfterEach64Characters();
    void decodesWhatItEncodes();
    void passesOverBlanksInBase64();
    void fillsAShortLastGroup();
    void asksAboutABadGroup_data();
    void asksAboutABadGroup();
    void putsQuestionMarksInPlaceOfABadGroup();
    void stopsAtABadGroupOnCancel();
    void tellsOfAnEqualSignBeforeTheEnd();

    void writesEveryMissingKeyWithItsDefault_data();
    void writesEveryMissingKeyWithItsDefault();
    void writesTheSectionsInOrder();
    void writesTogetherWhatKeyByKeyWouldStand_data();
    void writesTogetherWhatKeyByKeyWouldStand();
    void neverOverwritesAKey();
    void leavesThePathsEmptyAtTheFirstPass();
    void writesTheNoteNumbersScrambledWithTheValueZero();
    void givesNothingForAnAbsentKey();
    void readsSectionsWithoutRegardToCase();
    void cutsAScrambledValueTo48Characters();
    void aLongValueStandsWithItsLineBreaks();
    void scramblesTheCallersVariable();
    void aFileOfAnEditorIsRead_data();
    void aFileOfAnEditorIsRead();
    void aFileOfAnEditorIsWrittenInPlace_data() { aFileOfAnEditorIsRead_data(); }
    void aFileOfAnEditorIsWrittenInPlace();
    void losesWritesToAFileThatCanNotBeWritten();
    void clearsAtTheStartWhatAKillLeft();

private:
    QByteArray arquivo() const;
    void grava(const QByteArray &conteudo) const;

    std::unique_ptr<QTemporaryDir> pasta_;
};

void TestConfig::init()
{
    pasta_ = std::make_unique<QTemporaryDir>();
    QVERIFY(pasta_->isValid());
    core::App::setPath(pasta_->path());
    core::ArquivoINI = pasta_->path() + u"\\config.ini"_s;
    runtime::setClock(runtime::CDate(u"15/05/2024 10:30:00"_s));
}

void TestConfig::cleanup()
{
    core::setPerguntaBase64({});
    runtime::setClock(std::nullopt);
}

QByteArray TestConfig::arquivo() const
{
    QFile lido(pasta_->filePath(u"config.ini"_s));
    return lido.open(QIODevice::ReadOnly) ? lido.readAll() : QByteArray();
}

void TestConfig::grava(const QByteArray &conteudo) const
{
    QFile escrito(pasta_->filePath(u"config.ini"_s));
    QVERIFY(escrito.open(QIODevice::WriteOnly));
    QCOMPARE(escrito.write(conteudo), conteudo.size());
}

// --- scrambling

void TestConfig::scramblesKnownValues_data()
{
    QTest::addColumn<QString>("claro");
    QTest::addColumn<QString>("embaralhado");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("S") << u"S"_s << u"Vg=="_s;
    QTest::newRow("0") << u"0"_s << u"Mw=="_s;
    QTest::newRow("0,02") << u"0,02"_s << u"My8zNQ=="_s;
    QTest::newRow("Tarvelo") << u"Tarvelo"_s << u"V2R1eWhvcg=="_s;
    QTest::newRow("Western letters") << u"Endereço"_s << u"SHFnaHVo6nI="_s;
    QTest::newRow("000000") << u"000000"_s << u"MzMzMzMz"_s;
    QTest::newRow("a password") << u"123456"_s << u"NDU2Nzg5"_s;
}

void TestConfig::scramblesKnownValues()
{
    QFETCH(const QString, claro);
    QFETCH(const QString, embaralhado);
    QCOMPARE(core::Embaralha(claro), embaralhado);
    QCOMPARE(core::Desembaralha(embaralhado), claro);
}

void TestConfig::shiftsCharacters_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("subir");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("up") << u"ABC"_s << true << u"DEF"_s;
    QTest::newRow("down") << u"DEF"_s << false << u"ABC"_s;
    QTest::newRow("empty") << QString() << true << QString();
    QTest::newRow("down drops the codes under 3") << QString(u"D"_s + QChar(0) + QChar(2) + u'E') << false << u"AB"_s;
    QTest::newRow("up drops the codes over 252") << u"AýB"_s << true << u"DE"_s;
    QTest::newRow("a character outside the code page") << u"Ω"_s << true << u"B"_s;
}

void TestConfig::shiftsCharacters()
{
    QFETCH(const QString, texto);
    QFETCH(const bool, subir);
    QTEST(core::DeslocaTexto(texto, subir), "esperado");
}

void TestConfig::breaksBase64AfterEach64Characters_data()
{
    QTest::addColumn<int>("caracteres");
    QTest::addColumn<int>("quebras");
    QTest::newRow("47") << 47 << 1;
    QTest::newRow("45") << 45 << 0;
    QTest::newRow("48: a full last line has one too") << 48 << 1;
    QTest::newRow("49") << 49 << 1;
    QTest::newRow("96") << 96 << 2;
    QTest::newRow("97") << 97 << 2;
}

void TestConfig::breaksBase64AfterEach64Characters()
{
    QFETCH(const int, caracteres);
    QFETCH(const int, quebras);
    const QString codificado = core::Base64Codifica(QString(caracteres, u'A'));
    QCOMPARE(codificado.count(u"\r\n"_s), quebras);
    if (quebras > 0) {
        QCOMPARE(codificado.indexOf(u'\r'), 64);
    }
}

void TestConfig::decodesWhatItEncodes()
{
    QString todos;
    for (int codigo = 3; codigo < 253; ++codigo) {
        todos += runtime::fromWestern(QByteArray(1, static_cast<char>(codigo)));
    }
    QCOMPARE(core::Desembaralha(core::Embaralha(todos)), todos);
}

void TestConfig::passesOverBlanksInBase64()
{
    QCOMPARE(core::Base64Decodifica(u" QU\tJD\r\nREVG "_s), u"ABCDEF"_s);
}

void TestConfig::fillsAShortLastGroup()
{
    // The padding comes out as the code 0, which the shift down drops.
    QCOMPARE(core::Base64Decodifica(u"QUJDRA"_s), QString(u"ABCD"_s + QChar(0) + QChar(0)));
    QCOMPARE(core::Desembaralha(u"V2R1eWhvcg"_s), u"Tarvelo"_s);
}

void TestConfig::asksAboutABadGroup_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("pergunta");
    QTest::newRow("outside the alphabet") << u"QU!D"_s << u"Illegal Characters <QU!D> found"_s;
    QTest::newRow("accented") << u"QUçD"_s << u"Illegal Characters <QUçD> found"_s;
    QTest::newRow("short and bad") << u"Q*"_s << u"Illegal Characters <Q*==> found"_s;
    QTest::newRow("equal sign in the middle") << u"Q=JD"_s << u"Illegal Characters <Q=JD> found"_s;
}

void TestConfig::asksAboutABadGroup()
{
    QStringList perguntas;
    core::setPerguntaBase64([&](const QString &texto, const QString &titulo) {
        perguntas << texto << titulo;
        return true;
    });
    QFETCH(const QString, texto);
    QFETCH(const QString, pergunta);
    QCOMPARE(core::Base64Decodifica(texto), u"???"_s);
    QCOMPARE(perguntas, (QStringList{pergunta, u"PROGRAM ERROR"_s}));
}

void TestConfig::putsQuestionMarksInPlaceOfABadGroup()
{
    core::setPerguntaBase64([](const QString &, const QString &) { return true; });
    QCOMPARE(core::Base64Decodifica(u"QUJD!!!!REVG"_s), u"ABC???DEF"_s);
}

void TestConfig::stopsAtABadGroupOnCancel()
{
    core::setPerguntaBase64([](const QString &, const QString &) { return false; });
    QCOMPARE(core::Base64Decodifica(u"QUJD!!!!REVG"_s), u"ABC"_s);
}

void TestConfig::tellsOfAnEqualSignBeforeTheEnd()
{
    QStringList avisos;
    core::setPerguntaBase64([](const QString &, const QString &) { return true; },
                            [&](const QString &texto, const QString &titulo) { avisos << texto << titulo; });
    QCOMPARE(core::Base64Decodifica(u"Q=JDQUI="_s), QString(u"???AB"_s + QChar(0)));
    QCOMPARE(avisos, (QStringList{u"Text Error: Equal Sign not at end of text"_s, u"TRIM END OF TEXT"_s}));
}

// --- the settings file

namespace
{

struct Padrao {
    QString secao;
    QString chave;
    QString valor;
};

/// In the order of the start.
QList<Padrao> padroes()
{
    const QString config = u"Config"_s;
    const QString orcamento = u"Orcamento"_s;
    return {
        {config, u"Juros"_s, u"0"_s},
        {config, u"Nome"_s, u"Tarvelo"_s},
        {config, u"Desconto"_s, u"0"_s},
        {config, u"PermiteLC"_s, u"S"_s},
        {config, u"Endereco"_s, u"Endereço"_s},
        {config, u"Bairro"_s, u"Bairro"_s},
        {config, u"Telefone"_s, u"Telefone"_s},
        {config, u"CEP"_s, u"On"_s},
        {config, u"AutoComplete"_s, u"S"_s},
        {config, u"Personalizacao"_s, u"0"_s},
        {config, u"ExibeAviso"_s, u"S"_s},
        {config, u"AvisaBackup"_s, u"S"_s},
        {config, u"LastBackup"_s, u"15/05/2024 10:30:00"_s},
        {config, u"BackupDias"_s, u"7"_s},
        {orcamento, u"P1"_s, u"0"_s},
        {orcamento, u"P2"_s, u"0"_s},
        {orcamento, u"P3"_s, u"1"_s},
        {orcamento, u"P4"_s, u"0"_s},
        {orcamento, u"P5"_s, u"0"_s},
        {orcamento, u"Parcelas"_s, u"06"_s},
        {orcamento, u"Texto1"_s, u"ORÇAMENTO VÁLIDO POR 15 DIAS"_s},
        {orcamento, u"Texto2"_s, u"VALORES SUJEITOS A ALTERÇÃO SEM PRÉVIO AVISO"_s},
        {orcamento, u"Gravado"_s, u"Ok"_s},
        {config, u"DesativarGraficos"_s, u"N"_s},
        {config, u"LayoutOS"_s, u"1"_s},
        {config, u"PrintFormaPagto"_s, u"S"_s},
        {config, u"PreencheCadastroAutomatico"_s, u"S"_s},
        {config, u"NotaPeca"_s, u"000000"_s},
        {config, u"NotaServico"_s, u"000000"_s},
    };
}

} // namespace

void TestConfig::writesEveryMissingKeyWithItsDefault_data()
{
    QTest::addColumn<QString>("secao");
    QTest::addColumn<QString>("padrao");
    for (const Padrao &padrao : padroes()) {
        QTest::newRow(qPrintable(padrao.chave)) << padrao.secao << padrao.valor;
    }
}

void TestConfig::writesEveryMissingKeyWithItsDefault()
{
    core::CarregaConfig();
    QFETCH(const QString, secao);
    QFETCH(const QString, padrao);
    QCOMPARE(core::LeINI(secao, QString::fromLatin1(QTest::currentDataTag()), true), padrao);
}

void TestConfig::writesTheSectionsInOrder()
{
    core::CarregaConfig();
    const QList<QByteArray> linhas = arquivo().split('\n');
    QCOMPARE(linhas.first(), QByteArray("[Config]\r"));
    QCOMPARE(linhas.at(1), QByteArray("Juros=Mw==\r"));
    QCOMPARE(linhas.at(2), QByteArray("Nome=V2R1eWhvcg==\r"));
    QVERIFY(arquivo().indexOf("[Orcamento]") > 0);
    QCOMPARE(core::Config(u"PermiteLC"_s), u"S"_s);
    QCOMPARE(core::ConfigOrcamento(u"Parcelas"_s), u"06"_s);
}

void TestConfig::writesTogetherWhatKeyByKeyWouldStand_data()
{
    QTest::addColumn<QByteArray>("antes");
    QTest::newRow("no file") << QByteArray();
    QTest::newRow("the second section alone") << QByteArray("[Orcamento]\r\nP4=NA==\r\n");
    QTest::newRow("keys, a blank line, a foreign section")
        << QByteArray("[Config]\r\nLayoutOS=Ng==\r\n\r\n[Outra]\r\nx=1\r\n");
}

void TestConfig::writesTogetherWhatKeyByKeyWouldStand()
{
    QFETCH(const QByteArray, antes);
    grava(antes);
    core::CarregaConfig();
    const QByteArray juntas = arquivo();

    grava(antes);
    for (const auto &[secao, chave, valor] : padroes()) {
        if (core::LeINI(secao, chave, true).isEmpty()) {
            core::GravaINI(secao, chave, valor, true);
        }
    }
    core::GravaINI(u"Config"_s, u"FileDB"_s, core::App::Path() + u"\\DADOS\\DADOS.MDB"_s, false);
    core::GravaINI(u"Config"_s, u"FileCEP"_s, core::App::Path() + u"\\CEP.MDB"_s, false);
    QCOMPARE(juntas, arquivo());
}

void TestConfig::neverOverwritesAKey()
{
    core::GravaINI(u"Config"_s, u"Nome"_s, u"OFICINA DO ZÉ"_s, true);
    core::GravaINI(u"Config"_s, u"BackupDias"_s, u"$$$$"_s, false);
    core::CarregaConfig();
    QCOMPARE(core::Config(u"Nome"_s), u"OFICINA DO ZÉ"_s);
    QCOMPARE(core::LeINI(u"Config"_s, u"BackupDias"_s, false), u"$$$$"_s);
}

void TestConfig::leavesThePathsEmptyAtTheFirstPass()
{
    core::CarregaConfig();
    QCOMPARE(core::ArquivoDB, QString());
    QCOMPARE(core::ArquivoCEP, QString());
    QCOMPARE(core::LeINI(u"Config"_s, u"FileDB"_s, false), core::App::Path() + u"\\DADOS\\DADOS.MDB"_s);
    QCOMPARE(core::LeINI(u"Config"_s, u"FileCEP"_s, false), core::App::Path() + u"\\CEP.MDB"_s);
    core::CarregaConfig();
    QCOMPARE(core::ArquivoDB, core::App::Path() + u"\\DADOS\\DADOS.MDB"_s);
    QCOMPARE(core::ArquivoCEP, core::App::Path() + u"\\CEP.MDB"_s);
}

void TestConfig::writesTheNoteNumbersScrambledWithTheValueZero()
{
    core::CarregaConfig();
    const QString bruto = core::LeINI(u"CONFIG"_s, u"NotaPeca"_s, false);
    QCOMPARE(bruto, u"MzMzMzMz"_s);
    QCOMPARE(runtime::Val(bruto), 0.0);
}

void TestConfig::givesNothingForAnAbsentKey()
{
    QCOMPARE(core::LeINI(u"Config"_s, u"LancarRegAutCRLivroCaixa"_s, true), QString());
    core::CarregaConfig();
    QCOMPARE(core::LeINI(u"Config"_s, u"LancarRegAutCRLivroCaixa"_s, true), QString());
}

void TestConfig::readsSectionsWithoutRegardToCase()
{
    core::GravaINI(u"CONFIG"_s, u"NotaPeca"_s, u"000012"_s, false);
    QCOMPARE(core::LeINI(u"Config"_s, u"notapeca"_s, false), u"000012"_s);
}

void TestConfig::cutsAScrambledValueTo48Characters()
{
    const QString endereco = u"RUA DAS LARANJEIRAS, 1234, FUNDOS, GALPÃO 3, PRÓXIMO À PONTE"_s;
    QCOMPARE(endereco.size(), 60);
    core::GravaINI(u"Config"_s, u"Endereco"_s, endereco, true);
    QCOMPARE(core::Config(u"Endereco"_s), endereco.left(48));

    core::GravaINI(u"Config"_s, u"Endereco"_s, endereco.left(48), true);
    QCOMPARE(core::Config(u"Endereco"_s), endereco.left(48));
}

/// The platform writes a line break as it comes: the rest of the base64 is lines of nobody, which every write leaves.
void TestConfig::aLongValueStandsWithItsLineBreaks()
{
    core::CarregaConfig();
    const QString endereco(60, u'A');
    const QByteArray primeira = QByteArray("RERE").repeated(16);
    const QByteArray resto = QByteArray("RERE").repeated(4);
    core::GravaINI(u"Config"_s, u"Endereco"_s, endereco, true);
    const QByteArray linhas = primeira + "\r\n" + resto + "\r\n";
    QCOMPARE(arquivo().count(QByteArray("\r\nEndereco=" + linhas)), 1);
    core::GravaINI(u"Config"_s, u"Endereco"_s, endereco, true);
    QCOMPARE(arquivo().count(QByteArray("\r\n" + resto)), 2);
    QCOMPARE(arquivo().count("Endereco="), 1);
    QCOMPARE(core::Config(u"Endereco"_s), endereco.left(48));
    core::GravaJuntas(u"Orcamento"_s, {{u"Texto1"_s, endereco}});
    QCOMPARE(arquivo().count(QByteArray("\r\nTexto1=" + linhas)), 1);
    QCOMPARE(core::ConfigOrcamento(u"Texto1"_s), endereco.left(48));
}

void TestConfig::scramblesTheCallersVariable()
{
    QString valor = u"S"_s;
    core::GravaINI(u"Config"_s, u"CEP"_s, valor, true);
    QCOMPARE(valor, u"Vg=="_s);

    const QString fixo = u"S"_s;
    core::GravaINI(u"Config"_s, u"CEP"_s, fixo, true);
    QCOMPARE(fixo, u"S"_s);
}

void TestConfig::aFileOfAnEditorIsRead_data()
{
    QTest::addColumn<QByteArray>("conteudo");
    const QByteArray crlf =
        "[Config]\r\nNome=V2R1eWhvcg==\r\nFileDB=X:\\S\xE3o\\DADOS.MDB\r\n[Orcamento]\r\nP1=NA==\r\n";
    QTest::newRow("as it is written") << crlf;
    QTest::newRow("line feeds alone") << QByteArray(crlf).replace("\r\n", "\n");
    QTest::newRow("carriage returns alone") << QByteArray(crlf).replace("\r\n", "\r");
    QTest::newRow("a mark of UTF-8 ahead") << "\xEF\xBB\xBF" + crlf;
    QTest::newRow("blank lines ahead") << "\r\n \t\r\n" + crlf;
    QTest::newRow("no end of the last line") << crlf.chopped(2);
    QTest::newRow("comments") << "; da oficina\r\n" + QByteArray(crlf).replace("Nome", ";Nome=QQ==\r\nNome");
    QTest::newRow("blanks around") << QByteArray(crlf).replace("=V2", "  =\t V2").replace("[Config]", " [ Config ] ");
    QTest::newRow("quotation marks")
        << QByteArray(crlf).replace("V2R1eWhvcg==", "\"V2R1eWhvcg==\"").replace("NA==", "'NA=='");
    QTest::newRow("other capitals") << QByteArray(crlf).replace("Config", "CONFIG").replace("Nome", "NOME");
    QTest::newRow("the key twice") << QByteArray(crlf).replace("FileDB", "Nome=QUJD\r\nFileDB");
    QTest::newRow("the sections twice") << crlf + "[config]\r\nNome=QUJD\r\n[ORCAMENTO]\r\nP1=Mw==\r\n";
}

void TestConfig::aFileOfAnEditorIsRead()
{
    QFETCH(const QByteArray, conteudo);
    grava(conteudo);
    QCOMPARE(core::Config(u"Nome"_s), u"Tarvelo"_s);
    QCOMPARE(core::ConfigOrcamento(u"P1"_s), u"1"_s);
    QCOMPARE(core::LeINI(u"Config"_s, u"FileDB"_s, false), u"X:\\São\\DADOS.MDB"_s);
}

/// No second section beside the user's: the start would go by whichever stands first.
void TestConfig::aFileOfAnEditorIsWrittenInPlace()
{
    QFETCH(const QByteArray, conteudo);
    grava(conteudo);
    core::GravaINI(u"Config"_s, u"Nome"_s, u"OFICINA"_s, true);
    core::GravaINI(u"Config"_s, u"BackupDias"_s, u"7"_s, true);
    core::GravaINI(u"Orcamento"_s, u"P2"_s, u"0"_s, true);
    QCOMPARE(arquivo().count('['), conteudo.count('['));
    QCOMPARE(core::Config(u"Nome"_s), u"OFICINA"_s);
    QCOMPARE(core::Config(u"BackupDias"_s), u"7"_s);
    QCOMPARE(core::ConfigOrcamento(u"P1"_s), u"1"_s);
    QCOMPARE(core::ConfigOrcamento(u"P2"_s), u"0"_s);
    QCOMPARE(core::LeINI(u"Config"_s, u"FileDB"_s, false), u"X:\\São\\DADOS.MDB"_s);
    QVERIFY(arquivo().startsWith(conteudo.first(conteudo.indexOf('['))));
}

void TestConfig::losesWritesToAFileThatCanNotBeWritten()
{
    core::ArquivoINI = pasta_->path() + u"\\ausente\\config.ini"_s;
    core::CarregaConfig();
    QCOMPARE(core::Config(u"Nome"_s), QString());
    QCOMPARE(core::ArquivoDB, QString());
}

void TestConfig::clearsAtTheStartWhatAKillLeft()
{
    core::CarregaConfig();
    const QByteArray antes = arquivo();
    QFile resto(pasta_->filePath(u"config.ini.gravando-0123abcd"_s));
    QVERIFY(resto.open(QIODevice::WriteOnly));
    resto.close();
    core::CarregaConfig();
    QCOMPARE(QDir(pasta_->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"config.ini"_s});
    QCOMPARE(arquivo(), antes);
}

QTEST_GUILESS_MAIN(TestConfig)
#include "tst_config.moc"
