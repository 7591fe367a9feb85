// What becomes of a value of a genuine Jet file in a column of the program's.
#include "tests/dao/golden.h"
#include "tools/importa/conversao.h"

#include <QTest>

#include <bit>
#include <limits>

using namespace Qt::StringLiterals;
using dao::FieldType;
using importa::Conversor;
using importa::Mudanca;
using runtime::Date;
using runtime::Null;
using runtime::Value;

Q_DECLARE_METATYPE(dao::FieldType)
Q_DECLARE_METATYPE(runtime::Value)

namespace
{

constexpr int nothing = -1;

int number(Mudanca change)
{
    return static_cast<int>(change);
}

dao::Field field(FieldType type, int size = 0)
{
    return {.name = u"A"_s, .type = type, .size = size, .attributes = 0};
}

/// With the width, as two numbers of different width are written alike.
QString told(const Value &value)
{
    return QString::number(value.index()) + u' ' + golden::shown(value);
}

class tst_importa_conversao : public QObject
{
    Q_OBJECT

private slots:
    void aValueOfItsOwnTypeStaysAsItIs_data();
    void aValueOfItsOwnTypeStaysAsItIs();
    void singlesKeepTheirBits();
    void aValueOfAnotherType_data();
    void aValueOfAnotherType();
    void aLongTextIsCut();
    void aTextIsNotCutInsideACharacter();
    void halfACharacterIsReplaced();
    void aTextWithAnyOtherCharacterStays_data();
    void aTextWithAnyOtherCharacterStays();
    void aNumberGetsItsZerosBack();
    void onlyValuesOfTheProgramHaveAType_data();
    void onlyValuesOfTheProgramHaveAType();
};

void tst_importa_conversao::aValueOfItsOwnTypeStaysAsItIs_data()
{
    QTest::addColumn<FieldType>("type");
    QTest::addColumn<Value>("value");
    QTest::addColumn<Value>("becomes");
    QTest::addColumn<int>("change");
    const auto row = [](const char *name, FieldType type, const Value &value) {
        QTest::newRow(name) << type << value << value << nothing;
    };
    row("Null", FieldType::Long, Null());
    row("True", FieldType::Boolean, true);
    row("Byte", FieldType::Byte, qint16{255});
    row("Integer", FieldType::Integer, qint16{-32768});
    row("Long", FieldType::Long, std::numeric_limits<qint32>::min());
    row("Currency", FieldType::Currency, 922337203685477.5807);
    row("Double", FieldType::Double, 0.1);
    row("an endless Double", FieldType::Double, std::numeric_limits<double>::infinity());
    row("day and time", FieldType::Date, Date{45427.4375});
    row("before day zero", FieldType::Date, Date{-1.25});
    row("the first day", FieldType::Date, Date{-657434});
    row("the last moment", FieldType::Date, Date{2958465.999988426});
    row("an empty text", FieldType::Text, u""_s);
    row("a text", FieldType::Text, u"JOSÉ d'Água  "_s);
    row("a memo", FieldType::Memo, QString(70'000, u'ã'));
    const auto lost = [](const char *name, FieldType type, const Value &value, Mudanca change) {
        QTest::newRow(name) << type << value << Value(Null()) << number(change);
    };
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    lost("no Single", FieldType::Single, std::numeric_limits<float>::quiet_NaN(), Mudanca::SemSentido);
    lost("no Double", FieldType::Double, none, Mudanca::SemSentido);
    lost("no day", FieldType::Date, Date{none}, Mudanca::SemLugar);
    lost("a day before the calendar", FieldType::Date, Date{-657435}, Mudanca::SemLugar);
    lost("a day behind the calendar", FieldType::Date, Date{2958466}, Mudanca::SemLugar);
}

void tst_importa_conversao::aValueOfItsOwnTypeStaysAsItIs()
{
    QFETCH(const FieldType, type);
    QFETCH(Value, value);
    QFETCH(const Value, becomes);
    QFETCH(const int, change);
    const auto found = Conversor(type, field(type, 255)).converte(value);
    QCOMPARE(told(value), told(becomes));
    QVERIFY(value == becomes);
    QCOMPARE(found ? number(*found) : nothing, change);
}

void tst_importa_conversao::singlesKeepTheirBits()
{
    const Conversor converter(FieldType::Single, field(FieldType::Single));
    for (const quint32 bits : {0x3DCCCCCDU, 0x00000001U, 0x7F7FFFFFU, 0xFF800000U, 0x80000000U, 0x4B800001U}) {
        Value value(std::bit_cast<float>(bits));
        QVERIFY(!converter.converte(value));
        QCOMPARE(std::bit_cast<quint32>(std::get<float>(value)), bits);
    }
}

void tst_importa_conversao::aValueOfAnotherType_data()
{
    QTest::addColumn<FieldType>("from");
    QTest::addColumn<Value>("value");
    QTest::addColumn<FieldType>("to");
    QTest::addColumn<Value>("becomes");
    QTest::addColumn<int>("change");
    using enum FieldType;
    const auto row = [](const char *name, FieldType from, const Value &value, FieldType to, const Value &becomes) {
        QTest::newRow(name) << from << value << to << becomes << nothing;
    };
    row("Long in Integer", Long, qint32{32767}, Integer, qint16{32767});
    row("Byte in Integer", Byte, qint16{200}, Integer, qint16{200});
    row("Integer in Long", Integer, qint16{-1}, Long, qint32{-1});
    row("Integer in Single", Integer, qint16{7}, Single, 7.0F);
    row("Currency in Single", Currency, 10.1, Single, 10.1F);
    row("Double in Single", Double, 1234.56, Single, 1234.56F);
    row("Single in Double", Single, 0.5F, Double, 0.5);
    row("Double in Long", Double, 5.0, Long, qint32{5});
    row("Boolean in Integer", Boolean, true, Integer, qint16{-1});
    row("-1 in Boolean", Integer, qint16{-1}, Boolean, true);
    row("1 in Boolean", Long, qint32{1}, Boolean, true);
    row("0 in Boolean", Integer, qint16{0}, Boolean, false);
    row("Null in Boolean", Integer, Null(), Boolean, false);
    row("Null in Single", Text, Null(), Single, Null());
    row("an empty text in Single", Text, u""_s, Single, Null());
    row("an empty text in Boolean", Text, u""_s, Boolean, false);
    row("an empty text in Memo", Text, u""_s, Memo, u""_s);
    row("a text with a comma", Text, u"1.234,50"_s, Single, 1234.5F);
    row("a text with an exponent", Text, u"1e3"_s, Long, qint32{1000});
    row("a text with money", Text, u"R$ 10,10"_s, Single, 10.1F);
    row("a text with a day", Text, u"15/05/2024 10:30"_s, FieldType::Date, runtime::Date{45427.4375});
    row("a text with a truth", Text, u"Verdadeiro"_s, Boolean, true);
    row("a number in a text", Long, qint32{-12}, Text, u"-12"_s);
    row("a Single in a text", Single, 0.1F, Text, u"0,1"_s);
    row("a day in a text", FieldType::Date, runtime::Date{45427}, Text, u"15/05/2024"_s);
    row("a day in a number", FieldType::Date, runtime::Date{45427}, Long, qint32{45427});
    row("a number in a day", Double, 45427.5, FieldType::Date, runtime::Date{45427.5});
    const auto told = [](const char *name, FieldType from, const Value &value, FieldType to, const Value &becomes,
                         Mudanca change) { QTest::newRow(name) << from << value << to << becomes << number(change); };
    told("a Long beyond Integer", Long, qint32{32768}, Integer, Null(), Mudanca::SemLugar);
    told("a Double beyond Single", Double, 1e300, Single, Null(), Mudanca::SemLugar);
    told("a Double beyond Long", Double, 3e9, Long, Null(), Mudanca::SemLugar);
    told("a negative Byte", Integer, qint16{-1}, Byte, Null(), Mudanca::SemLugar);
    told("a Long with more digits than Single", Long, qint32{16777217}, Single, 16777216.0F, Mudanca::Arredondado);
    told("an amount with more digits", Currency, 123456.78, Single, 123456.78F, Mudanca::Arredondado);
    told("a fraction in Integer", Single, 12.5F, Integer, qint16{12}, Mudanca::Arredondado);
    told("a fraction in a text for Integer", Text, u"12,5"_s, Integer, qint16{12}, Mudanca::Arredondado);
    told("a time in Long", FieldType::Date, runtime::Date{45427.5}, Long, qint32{45428}, Mudanca::Arredondado);
    told("2 in Boolean", Integer, qint16{2}, Boolean, true, Mudanca::Arredondado);
    told("a word in Single", Text, u"dez"_s, Single, Null(), Mudanca::SemSentido);
    told("a word in Boolean", Text, u"Sim"_s, Boolean, false, Mudanca::SemSentido);
    told("a word in a day", Text, u"ontem"_s, FieldType::Date, Null(), Mudanca::SemSentido);
    told("digits beyond Integer", Text, u"40000"_s, Integer, Null(), Mudanca::SemLugar);
    told("a number beyond the calendar", Double, 1e9, FieldType::Date, Null(), Mudanca::SemLugar);
    told("no number in Single", Double, std::numeric_limits<double>::quiet_NaN(), Single, Null(), Mudanca::SemLugar);
    told("a number longer than its text", Long, qint32{-2147483647}, Text, Null(), Mudanca::SemLugar);
}

void tst_importa_conversao::aValueOfAnotherType()
{
    QFETCH(const FieldType, from);
    QFETCH(Value, value);
    QFETCH(const FieldType, to);
    QFETCH(const Value, becomes);
    QFETCH(const int, change);
    const auto found = Conversor(from, field(to, 10)).converte(value);
    QCOMPARE(told(value), told(becomes));
    QVERIFY(value == becomes);
    QCOMPARE(found ? number(*found) : nothing, change);
}

void tst_importa_conversao::aLongTextIsCut()
{
    const Conversor converter(FieldType::Memo, field(FieldType::Text, 5));
    Value value(u"ÁRVORE"_s);
    QCOMPARE(number(converter.converte(value).value()), number(Mudanca::Cortado));
    QVERIFY(value == Value(u"ÁRVOR"_s));
    QVERIFY(!converter.converte(value));
    Value memo(QString(100'000, u'x'));
    QVERIFY(!Conversor(FieldType::Memo, field(FieldType::Memo)).converte(memo));
}

void tst_importa_conversao::aTextIsNotCutInsideACharacter()
{
    const Conversor converter(FieldType::Text, field(FieldType::Text, 3));
    Value value(u"ab\U0001F600c"_s);
    QCOMPARE(number(converter.converte(value).value()), number(Mudanca::Cortado));
    QVERIFY(value == Value(u"ab"_s));
    Value whole(u"a\U0001F600"_s);
    QVERIFY(!converter.converte(whole));
}

void tst_importa_conversao::halfACharacterIsReplaced()
{
    const Conversor converter(FieldType::Text, field(FieldType::Text, 10));
    const QString halves = QString(u'a') + QChar(0xD83D) + u'b' + QChar(0xDE00) + u"\U0001F600"_s + QChar(0xD83D);
    Value value(halves);
    QCOMPARE(number(converter.converte(value).value()), number(Mudanca::Caractere));
    QVERIFY(value == Value(u"a\uFFFDb\uFFFD\U0001F600\uFFFD"_s));
}

void tst_importa_conversao::aTextWithAnyOtherCharacterStays_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("lower case") << u"josé"_s;
    QTest::newRow("accent of its own") << u"Jose\u0301"_s;
    QTest::newRow("of two halves") << u"\U0001F600"_s;
    QTest::newRow("a zero") << QString(u'a') + QChar(0) + u'b';
    QTest::newRow("a mark of the byte order") << u"\uFEFFa"_s;
    QTest::newRow("line breaks") << u"a\r\nb\tc"_s;
    QTest::newRow("blanks around it") << u"  a  "_s;
}

void tst_importa_conversao::aTextWithAnyOtherCharacterStays()
{
    QFETCH(const QString, text);
    Value value(text);
    QVERIFY(!Conversor(FieldType::Text, field(FieldType::Text, 10)).converte(value));
    QVERIFY(value == Value(text));
}

void tst_importa_conversao::aNumberGetsItsZerosBack()
{
    Conversor converter(FieldType::Long, field(FieldType::Text, 8));
    converter.completaComZeros(8);
    Value code(qint32{1001000});
    QVERIFY(!converter.converte(code));
    QVERIFY(code == Value(u"01001000"_s));
}

void tst_importa_conversao::onlyValuesOfTheProgramHaveAType_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("known");
    for (const int code : {1, 2, 3, 4, 5, 6, 7, 8, 10, 12}) {
        QTest::addRow("%d", code) << code << true;
    }
    for (const int code : {0, 9, 11, 15, 16, 255}) {
        QTest::addRow("%d", code) << code << false;
    }
}

void tst_importa_conversao::onlyValuesOfTheProgramHaveAType()
{
    QFETCH(const int, code);
    QFETCH(const bool, known);
    const auto type = importa::TipoDe(code);
    QCOMPARE(type.has_value(), known);
    QVERIFY(!known || static_cast<int>(*type) == code);
}

} // namespace

QTEST_GUILESS_MAIN(tst_importa_conversao)

#include "tst_importa_conversao.moc"
