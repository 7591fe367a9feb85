#include "platform/printer/surface.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace printer;

namespace
{

/// Keeps the pages of its last document.
class Sheets : public PagedSurface
{
public:
    void EndDoc() override { document = takePages(); }

    std::vector<Page> document;
};

const TextMark &textOf(const Page &page, std::size_t number)
{
    return std::get<TextMark>(page.marks().at(number));
}

} // namespace

class tst_Surface : public QObject
{
    Q_OBJECT

private slots:
    void startsWithCourierAtTheTopLeft();
    void aLineEndGoesToTheLeftOfTheNextLine();
    void withoutLineEndThePositionMovesByTheText();
    void aLineBreakInsideATextStartsANewLine();
    void aTabulatorIsABlank();
    void theFontOfEachCallIsRecorded();
    void theScaleIsTheUnitOfThePosition_data();
    void theScaleIsTheUnitOfThePosition();
    void aNewScaleLeavesThePosition();
    void aPictureTakesTheScale();
    void aPictureInMonochromeIsGrey();
    void aNullPictureDrawsNothing();
    void aNewPageStartsAtTheTopLeft();
    void theOrientationSwapsTheSheet();
    void theOrientationTurnsTheNextPageOnly();
    void anEndedDocumentIsUprightAgain();
    void aLineBelowTheSheetGoesToANewPage();
    void aColumnBelowTheSheetKeepsItsPlace();
    void aPageThatNothingStandsOnIsNotPrinted();
    void aPageLeftEmptyBetweenTwoIsPrinted();
    void aDocumentWithoutPrintHasNoPage();
};

void tst_Surface::startsWithCourierAtTheTopLeft()
{
    const Sheets sheets;
    QCOMPARE(sheets.FontName, u"Courier New"_s);
    QCOMPARE(sheets.CurrentX(), 0.0);
    QCOMPARE(sheets.CurrentY(), 0.0);
    QCOMPARE(sheets.Width(), 11906.0);
    QCOMPARE(sheets.Height(), 16838.0);
}

void tst_Surface::aLineEndGoesToTheLeftOfTheNextLine()
{
    Sheets sheets;
    sheets.FontSize = 10;
    sheets.setCurrentX(700);
    sheets.Print(u"ABC"_s);
    QCOMPARE(sheets.CurrentX(), 0.0);
    QCOMPARE(sheets.CurrentY(), 226.56);
}

void tst_Surface::withoutLineEndThePositionMovesByTheText()
{
    Sheets sheets;
    sheets.FontSize = 10;
    sheets.Print(u"ABC"_s, false);
    QCOMPARE(sheets.CurrentX(), 360.0);
    QCOMPARE(sheets.CurrentY(), 0.0);
    sheets.Print(u"D"_s);
    QCOMPARE(sheets.pages().front().lines(), QStringList{u"ABCD"_s});
}

void tst_Surface::aLineBreakInsideATextStartsANewLine()
{
    Sheets sheets;
    sheets.Print(u"OBS: "_s, false);
    sheets.Print(u"A\r\nB\nC"_s);
    QCOMPARE(sheets.pages().front().lines(), (QStringList{u"OBS: A"_s, u"B"_s, u"C"_s}));
}

void tst_Surface::aTabulatorIsABlank()
{
    Sheets sheets;
    sheets.Print(u"A\tB"_s);
    QCOMPARE(sheets.pages().front().lines(), QStringList{u"A B"_s});
}

void tst_Surface::theFontOfEachCallIsRecorded()
{
    Sheets sheets;
    sheets.FontSize = 14;
    sheets.FontBold = true;
    sheets.Print(u"A"_s);
    sheets.FontSize = 8;
    sheets.FontBold = false;
    sheets.FontUnderline = true;
    sheets.Print(u"B"_s);
    QCOMPARE(textOf(sheets.pages().front(), 0).font, (Font{u"Courier New"_s, 14, true, false}));
    QCOMPARE(textOf(sheets.pages().front(), 1).font, (Font{u"Courier New"_s, 8, false, true}));
}

void tst_Surface::theScaleIsTheUnitOfThePosition_data()
{
    QTest::addColumn<ScaleMode>("mode");
    QTest::addColumn<double>("twips");
    QTest::newRow("twips") << ScaleMode::Twips << 1.0;
    QTest::newRow("points") << ScaleMode::Points << 20.0;
    QTest::newRow("pixels") << ScaleMode::Pixels << 15.0;
    QTest::newRow("characters") << ScaleMode::Characters << 120.0;
    QTest::newRow("inches") << ScaleMode::Inches << 1440.0;
    QTest::newRow("millimetres") << ScaleMode::Millimetres << 144 / 2.54;
    QTest::newRow("centimetres") << ScaleMode::Centimetres << 1440 / 2.54;
}

void tst_Surface::theScaleIsTheUnitOfThePosition()
{
    QFETCH(ScaleMode, mode);
    QFETCH(double, twips);
    Sheets sheets;
    sheets.setScaleMode(mode);
    sheets.setCurrentX(2);
    sheets.setCurrentY(3);
    sheets.Print(u"A"_s, false);
    const TextMark &mark = textOf(sheets.pages().front(), 0);
    QCOMPARE(mark.position, QPointF(2, 3) * twips);
    QCOMPARE(sheets.CurrentY(), 3.0);
}

void tst_Surface::aNewScaleLeavesThePosition()
{
    Sheets sheets;
    sheets.setCurrentY(1440);
    sheets.setScaleMode(ScaleMode::Centimetres);
    QCOMPARE(sheets.CurrentY(), 2.54);
}

void tst_Surface::aPictureTakesTheScale()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    Sheets sheets;
    sheets.setScaleMode(ScaleMode::Centimetres);
    sheets.PaintPicture(image, 0, 1, 12, 3.5);
    const auto &mark = std::get<PictureMark>(sheets.pages().front().marks().front());
    QCOMPARE(mark.position, QPointF(0, twipsPerCentimetre));
    QCOMPARE(mark.size, QSizeF(12, 3.5) * twipsPerCentimetre);
    QVERIFY(!mark.picture.allGray());
    QCOMPARE(sheets.CurrentY(), 0.0);
}

void tst_Surface::aPictureInMonochromeIsGrey()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    Sheets sheets;
    sheets.ColorMode = ColorMode::Monochrome;
    sheets.PaintPicture(image, 0, 0, 1, 1);
    QVERIFY(std::get<PictureMark>(sheets.pages().front().marks().front()).picture.allGray());
}

void tst_Surface::aNullPictureDrawsNothing()
{
    Sheets sheets;
    sheets.PaintPicture({}, 0, 0, 12, 3.5);
    QVERIFY(sheets.pages().empty());
}

void tst_Surface::aNewPageStartsAtTheTopLeft()
{
    Sheets sheets;
    sheets.Print(u"A"_s, false);
    sheets.NewPage();
    QCOMPARE(sheets.CurrentX(), 0.0);
    QCOMPARE(sheets.CurrentY(), 0.0);
    sheets.Print(u"B"_s);
    QCOMPARE(sheets.pages().size(), std::size_t{2});
    QCOMPARE(sheets.pages().back().lines(), QStringList{u"B"_s});
}

void tst_Surface::theOrientationSwapsTheSheet()
{
    Sheets sheets;
    sheets.setOrientation(Orientation::Landscape);
    QCOMPARE(sheets.Width(), 16838.0);
    QCOMPARE(sheets.Height(), 11906.0);
    sheets.Print(u"A"_s);
    QCOMPARE(sheets.pages().front().size(), QSizeF(16838, 11906));
}

void tst_Surface::theOrientationTurnsTheNextPageOnly()
{
    Sheets sheets;
    sheets.Print(u"A"_s);
    sheets.setOrientation(Orientation::Landscape);
    sheets.NewPage();
    QCOMPARE(sheets.pages().front().size(), QSizeF(11906, 16838));
    QCOMPARE(sheets.pages().back().size(), QSizeF(16838, 11906));
    sheets.setOrientation(Orientation::Portrait);
    QCOMPARE(sheets.pages().back().size(), QSizeF(11906, 16838));
}

void tst_Surface::anEndedDocumentIsUprightAgain()
{
    Sheets sheets;
    sheets.setOrientation(Orientation::Landscape);
    sheets.Print(u"A"_s, false);
    sheets.EndDoc();
    QCOMPARE(sheets.Width(), 11906.0);
    QCOMPARE(sheets.CurrentX(), 0.0);
    QVERIFY(sheets.pages().empty());
    QCOMPARE(sheets.document.size(), std::size_t{1});
}

void tst_Surface::aLineBelowTheSheetGoesToANewPage()
{
    Sheets sheets;
    sheets.FontSize = 10;
    const int fitting = 72; // of 226.56 twips each on a sheet of 16838 less its two margins
    for (int line = 0; line <= fitting; ++line) {
        sheets.Print(QString::number(line));
    }
    QCOMPARE(sheets.pages().size(), std::size_t{2});
    QCOMPARE(sheets.pages().front().lines().size(), fitting);
    QCOMPARE(sheets.pages().back().lines(), QStringList{QString::number(fitting)});
}

void tst_Surface::aColumnBelowTheSheetKeepsItsPlace()
{
    Sheets sheets;
    sheets.FontSize = 10;
    sheets.setCurrentX(1200);
    sheets.setCurrentY(16838);
    sheets.Print(u"A"_s);
    QCOMPARE(sheets.pages().back().lines(), QStringList{u"          A"_s});
}

void tst_Surface::aPageThatNothingStandsOnIsNotPrinted()
{
    Sheets sheets;
    sheets.Print(u"A"_s);
    sheets.NewPage();
    sheets.EndDoc();
    QCOMPARE(sheets.document.size(), std::size_t{1});
}

void tst_Surface::aPageLeftEmptyBetweenTwoIsPrinted()
{
    Sheets sheets;
    sheets.NewPage();
    sheets.Print(u"A"_s);
    sheets.EndDoc();
    QCOMPARE(sheets.document.size(), std::size_t{2});
    QVERIFY(sheets.document.front().marks().empty());
}

void tst_Surface::aDocumentWithoutPrintHasNoPage()
{
    Sheets sheets;
    sheets.EndDoc();
    QVERIFY(sheets.document.empty());
}

QTEST_GUILESS_MAIN(tst_Surface)
#include "tst_surface.moc"
