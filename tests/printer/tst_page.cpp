#include "platform/printer/page.h"

#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace printer;

namespace
{

constexpr double dotsPerTwip = 0.1;

Font courier(double size, bool bold = false, bool underline = false)
{
    return {u"Courier New"_s, size, bold, underline};
}

double column(int number, const Font &font)
{
    return number * characterWidth(font);
}

Page sheet()
{
    return Page(QSizeF(11906, 16838));
}

QImage picture(const Page &page)
{
    QImage image((page.size() * dotsPerTwip).toSize(), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(dotsPerTwip, dotsPerTwip);
    page.paint(painter);
    return image;
}

/// The smallest rectangle, in twips of the sheet, that holds everything that is not white.
QRectF inked(const Page &page)
{
    const QImage image = picture(page);
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                found |= QRect(x, y, 1, 1);
            }
        }
    }
    return {QPointF(found.topLeft()) / dotsPerTwip, QSizeF(found.size()) / dotsPerTwip};
}

} // namespace

class tst_Page : public QObject
{
    Q_OBJECT

private slots:
    void aCharacterIsThreeFifthsOfTheSize();
    void aLineOf96ColumnsAtTenPointsFitsOnPaper();
    void textsOfOneHeightAreOneLine();
    void linesComeFromTheTopWhateverTheirOrder();
    void aTextStandsAtTheColumnOfItsOwnFont();
    void largerCharactersPushTheNextTextByABlank();
    void blanksAtTheEndOfALineDoNotCount();
    void underlinedBlanksAreARule();
    void aLineEndAloneIsAnEmptyLine();
    void aPictureIsNoLine();
    void everyFontIsAsWideAsItsColumns_data();
    void everyFontIsAsWideAsItsColumns();
    void anUnderlineRunsUnderBlanksToo();
    void boldIsBlacker();
    void aPictureFillsItsRectangle();
    void thePainterIsLeftAsItWas();
};

void tst_Page::aCharacterIsThreeFifthsOfTheSize()
{
    QCOMPARE(characterWidth(courier(10)), 120.0);
    QCOMPARE(characterWidth(courier(8)), 96.0);
    QCOMPARE(lineHeight(courier(10)), 226.56);
}

void tst_Page::aLineOf96ColumnsAtTenPointsFitsOnPaper()
{
    QVERIFY(column(96, courier(10)) <= sheet().printableSize().width());
    QVERIFY(column(40, courier(24)) <= sheet().printableSize().width());
}

void tst_Page::textsOfOneHeightAreOneLine()
{
    Page page = sheet();
    page.add(TextMark{{0, 100}, u"ANO: "_s, courier(10, true)});
    page.add(TextMark{{column(5, courier(10)), 100}, u"1998"_s, courier(10)});
    QCOMPARE(page.lines(), QStringList{u"ANO: 1998"_s});
}

void tst_Page::linesComeFromTheTopWhateverTheirOrder()
{
    Page page = sheet();
    page.add(TextMark{{0, 15000}, u"FOOT"_s, courier(8)});
    page.add(TextMark{{0, 0}, u"TITLE"_s, courier(14)});
    page.add(TextMark{{0, 500}, u"ROW"_s, courier(10)});
    QCOMPARE(page.lines(), (QStringList{u"TITLE"_s, u"ROW"_s, u"FOOT"_s}));
}

void tst_Page::aTextStandsAtTheColumnOfItsOwnFont()
{
    Page page = sheet();
    page.add(TextMark{{column(10, courier(14)), 0}, u"X"_s, courier(14)});
    page.add(TextMark{{column(10, courier(8)), 300}, u"Y"_s, courier(8)});
    QCOMPARE(page.lines(), (QStringList{u"          X"_s, u"          Y"_s}));
}

void tst_Page::largerCharactersPushTheNextTextByABlank()
{
    Page page = sheet();
    page.add(TextMark{{0, 0}, u"SMALL TEXT"_s, courier(8)});
    page.add(TextMark{{column(10, courier(8)), 0}, u"BIG"_s, courier(24)});
    QCOMPARE(page.lines(), QStringList{u"SMALL TEXT BIG"_s});
}

void tst_Page::blanksAtTheEndOfALineDoNotCount()
{
    Page page = sheet();
    page.add(TextMark{{0, 0}, u"  A  "_s, courier(10)});
    QCOMPARE(page.lines(), QStringList{u"  A"_s});
}

void tst_Page::underlinedBlanksAreARule()
{
    Page page = sheet();
    page.add(TextMark{{0, 0}, u"     "_s, courier(10, false, true)});
    page.add(TextMark{{0, 300}, u"A B"_s, courier(10, false, true)});
    QCOMPARE(page.lines(), (QStringList{u"_____"_s, u"A B"_s}));
}

void tst_Page::aLineEndAloneIsAnEmptyLine()
{
    Page page = sheet();
    page.add(TextMark{{0, 0}, {}, courier(10)});
    page.add(TextMark{{0, 227}, u"A"_s, courier(10)});
    QCOMPARE(page.lines(), (QStringList{QString(), u"A"_s}));
}

void tst_Page::aPictureIsNoLine()
{
    Page page = sheet();
    page.add(PictureMark{{0, 0}, {100, 100}, QImage(2, 2, QImage::Format_RGB32)});
    QVERIFY(page.lines().isEmpty());
}

void tst_Page::everyFontIsAsWideAsItsColumns_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("fixed pitch") << u"Courier New"_s;
    QTest::newRow("another pitch") << u"DejaVu Sans Mono"_s;
    QTest::newRow("proportional") << u"Liberation Sans"_s;
    QTest::newRow("unknown") << u"No Such Font"_s;
}

void tst_Page::everyFontIsAsWideAsItsColumns()
{
    QFETCH(QString, name);
    Page page = sheet();
    page.add(TextMark{{0, 1000}, QString(96, u'H'), {name, 10}});
    const QRectF ink = inked(page);
    QVERIFY(std::abs(ink.left() - margin) < 60);
    QVERIFY(std::abs(ink.right() - margin - 96 * 120) < 60);
    QVERIFY(ink.top() > margin + 1000);
    QVERIFY(ink.bottom() < margin + 1000 + lineHeight(courier(10)));
}

void tst_Page::anUnderlineRunsUnderBlanksToo()
{
    Page page = sheet();
    page.add(TextMark{{0, 0}, QString(20, u' '), courier(10, false, true)});
    const QRectF ink = inked(page);
    QVERIFY(std::abs(ink.width() - 20 * 120) <= 1 / dotsPerTwip);
    QVERIFY(ink.height() <= 2 / dotsPerTwip);
}

void tst_Page::boldIsBlacker()
{
    const auto grey = [](bool bold) {
        Page page = sheet();
        page.add(TextMark{{0, 0}, QString(90, u'I'), courier(10, bold)});
        const QImage image = picture(page);
        qint64 sum = 0;
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += qGray(image.pixel(x, y));
            }
        }
        return sum;
    };
    QVERIFY(grey(true) < grey(false));
}

void tst_Page::aPictureFillsItsRectangle()
{
    QImage black(3, 3, QImage::Format_RGB32);
    black.fill(Qt::black);
    Page page = sheet();
    page.add(PictureMark{{500, 600}, {2000, 1000}, black});
    const QRectF ink = inked(page);
    QCOMPARE(ink, QRectF(margin + 500, margin + 600, 2000, 1000));
}

void tst_Page::thePainterIsLeftAsItWas()
{
    Page page = sheet();
    page.add(TextMark{{0, 0}, u"A"_s, courier(10)});
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(Qt::red);
    const QTransform before = painter.transform();
    page.paint(painter);
    QCOMPARE(painter.transform(), before);
    QCOMPARE(painter.pen().color(), QColor(Qt::red));
}

QTEST_MAIN(tst_Page)
#include "tst_page.moc"
