#include "core/funcoes.h"
#include "platform/printer/surface.h"
#include "platform/runtime/runtime.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(runtime::Value)

namespace
{

/// Keeps what is printed, a text a line.
class Papel : public printer::Surface
{
public:
    Papel() { FontName = u"Courier New"_s; }

    double Width() const override { return page_.size().width(); }
    double Height() const override { return page_.size().height(); }
    void setOrientation(printer::Orientation /*orientation*/) override {}
    void NewPage() override {}
    void EndDoc() override {}

    QStringList linhas() const
    {
        QStringList textos;
        for (const printer::Mark &marca : page_.marks()) {
            textos << std::get<printer::TextMark>(marca).text;
        }
        return textos;
    }

protected:
    printer::Page &page() override { return page_; }

private:
    printer::Page page_{QSizeF(11906, 16838)};
};

runtime::Date dia(const QString &texto)
{
    return runtime::CDate(texto);
}

} // namespace

class TestFuncoes : public QObject
{
    Q_OBJECT

private slots:
    void writesDatesForStatements_data();
    void writesDatesForStatements();
    void writesTheSameDateUnderAnyLocale();
    void formatsQuantitiesByUnit_data();
    void formatsQuantitiesByUnit();
    void namesTheUnits_data();
    void namesTheUnits();
    void takesAPercentageByItsDigits_data();
    void takesAPercentageByItsDigits();
    void addsTextsOfMoney();
    void putsValuesIntoWords_data();
    void putsValuesIntoWords();
    void putsPlainNumbersIntoWords_data();
    void putsPlainNumbersIntoWords();
    void hasNoWordsForWhatIsNoAmount_data();
    void hasNoWordsForWhatIsNoAmount();
    void checksCPF_data();
    void checksCPF();
    void checksCNPJ_data();
    void checksCNPJ();
    void formatsDocuments_data();
    void formatsDocuments();
    void alignsTexts_data();
    void alignsTexts();
    void printsWrapped_data();
    void printsWrapped();
};

void TestFuncoes::writesDatesForStatements_data()
{
    QTest::addColumn<int>("modo");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("one date") << 1 << u"#03/02/2024#"_s;
    QTest::newRow("one whole day") << 3 << u"#03/02/2024 00:00:00# AND #03/02/2024 23:59:59#"_s;
    QTest::newRow("a range") << 4 << u"#03/02/2024# AND #12/31/2024#"_s;
    QTest::newRow("a range of whole days") << 5 << u"#03/02/2024 00:00:00# AND #12/31/2024 23:59:59#"_s;
    QTest::newRow("mode 2 means nothing") << 2 << QString();
    QTest::newRow("mode 0 means nothing") << 0 << QString();
    QTest::newRow("mode 6 means nothing") << 6 << QString();
}

void TestFuncoes::writesDatesForStatements()
{
    QFETCH(const int, modo);
    // The time of day never gets into a literal.
    QTEST(core::DataSQL(dia(u"02/03/2024 18:45:00"_s), modo, dia(u"31/12/2024"_s)), "esperado");
    QTEST(core::DataSQL(u"02/03/2024"_s, modo, u"31/12/2024"_s), "esperado");
}

void TestFuncoes::writesTheSameDateUnderAnyLocale()
{
    const QLocale antes;
    for (const auto idioma : {QLocale::English, QLocale::German, QLocale::Japanese, QLocale::Arabic}) {
        QLocale::setDefault(QLocale(idioma));
        QCOMPARE(core::DataSQL(dia(u"02/03/2024"_s), 1), u"#03/02/2024#"_s);
    }
    QLocale::setDefault(antes);
}

void TestFuncoes::formatsQuantitiesByUnit_data()
{
    QTest::addColumn<double>("valor");
    QTest::addColumn<int>("unidade");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("whole pieces") << 2.0 << 0 << u"02"_s;
    QTest::newRow("half a piece") << 2.5 << 0 << u"2,500"_s;
    QTest::newRow("none") << 0.0 << 0 << u"00"_s;
    QTest::newRow("many pieces are not grouped") << 1234.0 << 0 << u"1234"_s;
    QTest::newRow("kilos always have three places") << 2.0 << 1 << u"2,000"_s;
    QTest::newRow("litres always have three places") << 1234.5 << 2 << u"1.234,500"_s;
    QTest::newRow("gallons") << 3.0 << 3 << u"03"_s;
    QTest::newRow("packets") << 4.0 << 4 << u"04"_s;
    QTest::newRow("part of a packet") << 4.25 << 4 << u"4,250"_s;
    QTest::newRow("a fraction under three places is none") << 2.0004 << 0 << u"02"_s;
    QTest::newRow("a fraction of half a thousandth is one") << 2.0005 << 0 << u"2,001"_s;
    QTest::newRow("a fraction that rounds to one is one") << 2.9996 << 0 << u"3,000"_s;
    QTest::newRow("negative") << -3.0 << 0 << u"-03"_s;
    QTest::newRow("negative with a fraction") << -0.5 << 0 << u"-0,500"_s;
    QTest::newRow("unknown unit") << 2.0 << 5 << QString();
    QTest::newRow("negative unit") << 2.0 << -1 << QString();
}

void TestFuncoes::formatsQuantitiesByUnit()
{
    QFETCH(const double, valor);
    QFETCH(const int, unidade);
    QTEST(core::FormataQuantidade(valor, unidade), "esperado");
}

void TestFuncoes::namesTheUnits_data()
{
    QTest::addColumn<int>("unidade");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("0") << 0 << u"UNIDADE"_s;
    QTest::newRow("1") << 1 << u"QUILOS"_s;
    QTest::newRow("2") << 2 << u"LITROS"_s;
    QTest::newRow("3") << 3 << u"GALÃO"_s;
    QTest::newRow("4") << 4 << u"PACOTE"_s;
    QTest::newRow("5") << 5 << QString();
    QTest::newRow("-1") << -1 << QString();
}

void TestFuncoes::namesTheUnits()
{
    QFETCH(const int, unidade);
    QTEST(core::NomeDaUnidade(unidade), "esperado");
}

void TestFuncoes::takesAPercentageByItsDigits_data()
{
    QTest::addColumn<double>("valor");
    QTest::addColumn<double>("percentual");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("10") << 250.0 << 10.0 << u"25,00"_s;
    QTest::newRow("2") << 1000.0 << 2.0 << u"20,00"_s;
    QTest::newRow("2,5") << 1000.0 << 2.5 << u"25,00"_s;
    QTest::newRow("0") << 1000.0 << 0.0 << u"0,00"_s;
    QTest::newRow("99,999") << 1000.0 << 99.999 << u"999,99"_s;
    QTest::newRow("100 acts as 10") << 1000.0 << 100.0 << u"100,00"_s;
    QTest::newRow("150 acts as 15") << 1000.0 << 150.0 << u"150,00"_s;
    QTest::newRow("thousands are grouped") << 20000.0 << 50.0 << u"10.000,00"_s;
}

void TestFuncoes::takesAPercentageByItsDigits()
{
    QFETCH(const double, valor);
    QFETCH(const double, percentual);
    QTEST(core::Percentual(valor, percentual), "esperado");
}

void TestFuncoes::addsTextsOfMoney()
{
    QCOMPARE(core::SomaTexto(u"1.234,50"_s, u"0,75"_s), u"1.235,25"_s);
    QCOMPARE(core::SomaTexto(u"0,00"_s, u"-3,00"_s), u"-3,00"_s);
}

void TestFuncoes::putsValuesIntoWords_data()
{
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("esperado");
    const auto linha = [](const char *valor, const QString &palavras) {
        QTest::newRow(valor) << QString::fromLatin1(valor) << palavras;
    };
    linha("0,01", u"Um centavo"_s);
    linha("0,02", u"Dois centavos"_s);
    linha("0,20", u"Vinte centavos"_s);
    linha("0,99", u"Noventa e Nove centavos"_s);
    linha("1", u"Um real "_s);
    linha("1,10", u"Um reais e Dez centavos"_s);
    linha("2", u"Dois reais "_s);
    linha("3,01", u"Tres reais e Um centavo"_s);
    linha("14", u"Quatorze reais "_s);
    linha("19", u"Dezenove reais "_s);
    linha("20", u"Vinte reais "_s);
    linha("21", u"Vinte e Um reais "_s);
    linha("100", u"Cem reais "_s);
    linha("101", u"Cento e Um reais "_s);
    linha("110", u"Cento e Dez reais "_s);
    linha("199", u"Cento e Noventa e Nove reais "_s);
    linha("200", u"Duzentos reais "_s);
    linha("555,55", u"Quinhentos e Cinquenta e Cinco reais e Cinquenta e Cinco centavos"_s);
    linha("1000", u"Um Mil reais "_s);
    linha("1.234,56", u"Um Mil Duzentos e Trinta e Quatro reais e Cinquenta e Seis centavos"_s);
    linha("100000", u"Cem Mil reais "_s);
    linha("1000000", u"Um milhão de reais "_s);
    linha("2000000", u"Dois milhões de reais "_s);
    linha("1000001", u"Um milhão Um reais "_s);
    linha("2003000", u"Dois milhões Tres Mil reais "_s);
    linha("9999999,99", u"Nove milhões Novecentos e Noventa e Nove Mil Novecentos e Noventa e Nove reais e Noventa e "
                        u"Nove centavos"_s);
}

void TestFuncoes::putsValuesIntoWords()
{
    QFETCH(const QString, valor);
    QTEST(core::ValorPorExtenso(valor, true), "esperado");
    QTEST(core::ValorPorExtenso(runtime::CDbl(valor), true), "esperado");
}

void TestFuncoes::putsPlainNumbersIntoWords_data()
{
    QTest::addColumn<double>("valor");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("whole") << 25.0 << u"Vinte e Cinco "_s;
    QTest::newRow("with cents") << 25.5 << u"Vinte e Cinco Virgula Cinquenta "_s;
    QTest::newRow("cents alone are still cents") << 0.5 << u"Cinquenta centavos"_s;
}

void TestFuncoes::putsPlainNumbersIntoWords()
{
    QFETCH(const double, valor);
    QTEST(core::ValorPorExtenso(valor, false), "esperado");
}

void TestFuncoes::hasNoWordsForWhatIsNoAmount_data()
{
    QTest::addColumn<QString>("valor");
    QTest::newRow("zero") << u"0"_s;
    QTest::newRow("negative") << u"-1"_s;
    QTest::newRow("10000000") << u"10000000"_s;
    QTest::newRow("9999999,995") << u"9999999,995"_s;
    QTest::newRow("no number") << u"abc"_s;
    QTest::newRow("empty") << QString();
}

void TestFuncoes::hasNoWordsForWhatIsNoAmount()
{
    QFETCH(const QString, valor);
    QCOMPARE(core::ValorPorExtenso(valor, true), QString());
    QCOMPARE(core::ValorPorExtenso(runtime::Null{}, true), QString());
}

void TestFuncoes::checksCPF_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("esperado");
    const QString valido = u"CPF Válido"_s;
    const QString invalido = u"CPF Inválido"_s;
    const QString tamanho = u"É Necessário um CPF com 11 Dígitos"_s;
    QTest::newRow("right") << u"529.982.247-25"_s << valido;
    QTest::newRow("right, digits alone") << u"11144477735"_s << valido;
    QTest::newRow("right, with remainders under 2") << u"000.000.001-91"_s << valido;
    QTest::newRow("first check digit wrong") << u"529.982.247-35"_s << invalido;
    QTest::newRow("second check digit wrong") << u"529.982.247-26"_s << invalido;
    QTest::newRow("eleven zeros") << u"000.000.000-00"_s << invalido;
    QTest::newRow("ten digits") << u"5299822472"_s << tamanho;
    QTest::newRow("twelve digits") << u"529982247255"_s << tamanho;
    QTest::newRow("empty") << QString() << tamanho;
    QTest::newRow("letters don't count") << u"a529b982c247d25"_s << valido;
}

void TestFuncoes::checksCPF()
{
    QFETCH(const QString, texto);
    QTEST(core::ValidaCPF(texto), "esperado");
}

void TestFuncoes::checksCNPJ_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("esperado");
    const QString valido = u"CNPJ válido"_s;
    const QString invalido = u"CNPJ inválido"_s;
    const QString tamanho = u"É obrigatório o CNPJ com 14 dígitos"_s;
    QTest::newRow("right") << u"11.222.333/0001-81"_s << valido;
    QTest::newRow("right, digits alone") << u"11444777000161"_s << valido;
    QTest::newRow("first check digit wrong") << u"11.222.333/0001-91"_s << invalido;
    QTest::newRow("second check digit wrong") << u"11.222.333/0001-82"_s << invalido;
    QTest::newRow("fourteen zeros, with a capital") << u"00.000.000/0000-00"_s << u"CNPJ Inválido"_s;
    QTest::newRow("thirteen digits") << u"1122233300018"_s << tamanho;
    QTest::newRow("empty") << QString() << tamanho;
}

void TestFuncoes::checksCNPJ()
{
    QFETCH(const QString, texto);
    QTEST(core::ValidaCNPJ(texto), "esperado");
}

void TestFuncoes::formatsDocuments_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("tirar");
    QTest::addColumn<runtime::Value>("esperado");
    const auto texto = [](const QString &t) { return runtime::Value(t); };
    QTest::newRow("CPF") << u"52998224725"_s << false << texto(u"529.982.247-25"_s);
    QTest::newRow("CPF with its marks") << u"529.982.247-25"_s << false << texto(u"529.982.247-25"_s);
    QTest::newRow("CNPJ") << u"11222333000181"_s << false << texto(u"11.222.333/0001-81"_s);
    QTest::newRow("CNPJ with its marks") << u"11.222.333/0001-81"_s << false << texto(u"11.222.333/0001-81"_s);
    QTest::newRow("marks off") << u"11.222.333/0001-81"_s << true << texto(u"11222333000181"_s);
    QTest::newRow("marks off any text") << u"12.3-4/5"_s << true << texto(u"12345"_s);
    QTest::newRow("another length is nothing") << u"12345"_s << false << runtime::Value(runtime::Empty{});
    QTest::newRow("empty is Null") << QString() << false << runtime::Value(runtime::Null{});
    QTest::newRow("empty is Null without marks too") << QString() << true << runtime::Value(runtime::Null{});
}

void TestFuncoes::formatsDocuments()
{
    QFETCH(const QString, texto);
    QFETCH(const bool, tirar);
    QFETCH(const runtime::Value, esperado);
    QVERIFY(core::FormataDocumento(texto, tirar) == esperado);
}

void TestFuncoes::alignsTexts_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("esquerda");
    QTest::addColumn<QString>("direita");
    QTest::addColumn<QString>("centro");
    QTest::newRow("short") << u"ab"_s << u"ab   "_s << u"   ab"_s << u"  ab "_s;
    QTest::newRow("odd") << u"abc"_s << u"abc  "_s << u"  abc"_s << u" abc "_s;
    QTest::newRow("one less: the blank goes in front") << u"abcd"_s << u"abcd "_s << u" abcd"_s << u" abcd"_s;
    QTest::newRow("exact") << u"abcde"_s << u"abcde"_s << u"abcde"_s << u"abcde"_s;
    QTest::newRow("long: the first characters") << u"abcdefg"_s << u"abcde"_s << u"abcde"_s << u"abcde"_s;
    QTest::newRow("empty") << QString() << u"     "_s << u"     "_s << u"     "_s;
}

void TestFuncoes::alignsTexts()
{
    QFETCH(const QString, texto);
    QTEST(core::AlinhaEsquerda(texto, 5), "esquerda");
    QTEST(core::AlinhaDireita(texto, 5), "direita");
    QTEST(core::CentraTexto(texto, 5), "centro");
}

void TestFuncoes::printsWrapped_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QStringList>("esperado");
    QTest::newRow("short") << u"abc def"_s << QStringList{u"abc def"_s};
    QTest::newRow("broken at the last blank") << u"abc def ghi jkl"_s << QStringList{u"abc def"_s, u"ghi jkl"_s};
    QTest::newRow("a full line is broken too") << u"abcd efghi"_s << QStringList{u"abcd"_s, u"efghi"_s};
    QTest::newRow("no blank: broken hard")
        << u"abcdefghijklmnopqrstuvwxy"_s << QStringList{u"abcdefghij"_s, u"klmnopqrst"_s, u"uvwxy"_s};
    QTest::newRow("no blank, exactly a line") << u"abcdefghij"_s << QStringList{u"abcdefghij"_s};
    QTest::newRow("no blank, exactly two lines")
        << u"abcdefghijklmnopqrst"_s << QStringList{u"abcdefghij"_s, u"klmnopqrst"_s};
    QTest::newRow("a long word behind a short one")
        << u"ab cdefghijklmno"_s << QStringList{u"ab"_s, u"cdefghijkl"_s, u"mno"_s};
    QTest::newRow("empty") << QString() << QStringList{QString()};
}

void TestFuncoes::printsWrapped()
{
    QFETCH(const QString, texto);
    Papel papel;
    core::ImprimeQuebrado(texto, 10, papel);
    // An empty text prints an empty line, which may leave no mark.
    QFETCH(QStringList, esperado);
    QStringList linhas = papel.linhas();
    linhas.removeAll(QString());
    esperado.removeAll(QString());
    QCOMPARE(linhas, esperado);
    QVERIFY(papel.CurrentY() > 0);
}

QTEST_GUILESS_MAIN(TestFuncoes)
#include "tst_funcoes.moc"
