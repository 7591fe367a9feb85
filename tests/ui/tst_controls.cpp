#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "platform/ui/style.h"
#include "platform/ui/wait.h"
#include "support/palette.h"
#include "support/testmain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

QColor darkestOf(const QIcon &icon)
{
    const auto picture = icon.pixmap(32, 32).toImage();
    QColor darkest = Qt::white;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto pixel = picture.pixelColor(x, y);
            if (pixel.alpha() > 200 && pixel.lightness() < darkest.lightness()) {
                darkest = pixel;
            }
        }
    }
    return darkest;
}

void typeDigits(QWidget &widget, const char *digits)
{
    for (; *digits; ++digits) {
        QTest::keyClick(&widget, *digits);
    }
}

/// The application's palette for the length of a case.
class Palette
{
public:
    explicit Palette(const QColor &window, const QColor &text)
    {
        auto palette = before_;
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
            palette.setColor(role, window);
        }
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(role, text);
        }
        QApplication::setPalette(palette);
    }
    ~Palette() { QApplication::setPalette(before_); }
    Palette(const Palette &) = delete;
    Palette &operator=(const Palette &) = delete;

private:
    QPalette before_ = QApplication::palette();
};

} // namespace

class tst_controls : public QObject
{
    Q_OBJECT

private slots:
    void labelTellsItsChangesOnce();
    void pickerShowsTodayTheBrazilianWay();
    void pickerShowsTheDayOfATextInEveryZone_data();
    void pickerShowsTheDayOfATextInEveryZone();
    void pickerHasRoomForItsDate();
    void pickerTakesTypedDigits();
    void pickerTakesTheDateThatIsTyped_data();
    void pickerTakesTheDateThatIsTyped();
    void pickerForgetsADayThatWasTypedForAnotherDate();
    void pickerTakesDigitsWhereItIsClicked();
    void iconComesFromTheTheme();
    void iconFollowsThePalette();
    void iconOnTheScreenFollowsThePalette();
    void iconsComeFromTheProgramAlone();
    void unknownIconIsDrawn();
    void emptyCheckBoxShowsOnBothPalettes();
    void boxIsAsWideAsItsSample();
    void aToneIsReadOnLightAndOnDark_data();
    void aToneIsReadOnLightAndOnDark();
    void valueKeepsItsSize();
    void enlargedTextFollowsTheProgramsFont();
    void linesFollowTheFont();
    void waitLetsEventsRun();
    void waitLastsItsTime();
    void waitingPointerComesAndGoes();
};

void tst_controls::labelTellsItsChangesOnce()
{
    ui::Label label;
    const QSignalSpy changed(&label, &ui::Label::textChanged);
    label.setText(u"1"_s);
    label.setText(u"1"_s);
    label.setText(QString());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.first().first().toString(), u"1"_s);
    QCOMPARE(label.text(), QString());
}

void tst_controls::pickerShowsTodayTheBrazilianWay()
{
    runtime::setClock(runtime::DateSerial(2024, 5, 15));
    const ui::DTPicker picker;
    runtime::setClock({});
    QCOMPARE(picker.text(), u"15/05/2024"_s);
    QVERIFY(picker.calendarPopup());
    QCOMPARE(picker.locale().monthName(5), u"maio"_s);
}

void tst_controls::pickerShowsTheDayOfATextInEveryZone_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("text");
    QTest::newRow("late in Brazil") << QByteArray("America/Sao_Paulo") << u"29/02/2024 23:30:00"_s;
    QTest::newRow("no midnight") << QByteArray("America/Sao_Paulo") << u"04/11/2018"_s;
    QTest::newRow("east of Greenwich") << QByteArray("Asia/Tokyo") << u"29/02/2024"_s;
    QTest::newRow("Greenwich") << QByteArray("UTC") << u"29/02/2024 23:30:00"_s;
}

void tst_controls::pickerShowsTheDayOfATextInEveryZone()
{
    QFETCH(const QByteArray, zone);
    QFETCH(const QString, text);
    const bool hadZone = qEnvironmentVariableIsSet("TZ");
    const QByteArray before = qgetenv("TZ");
    const auto back = qScopeGuard([&] { hadZone ? qputenv("TZ", before) : qunsetenv("TZ"); });
    qputenv("TZ", zone);
    ui::DTPicker picker;
    ui::setTextOf(&picker, text);
    QCOMPARE(ui::textOf(&picker), text.left(10));
}

void tst_controls::pickerHasRoomForItsDate()
{
    constexpr int besideTheText = 4; // which an edit keeps free
    ui::Style look;
    QWidget window; // which may be wider than it wants
    ui::DTPicker picker(&window);
    picker.setStyle(&look);
    picker.setDate(QDate(2028, 12, 28));
    picker.resize(picker.sizeHint());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto *edit = picker.findChild<QLineEdit *>();
    QVERIFY(edit->contentsRect().width() >= edit->fontMetrics().horizontalAdvance(picker.text()) + besideTheText);
}

void tst_controls::pickerTakesTypedDigits()
{
    ui::DTPicker picker;
    picker.show();
    picker.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&picker));
    QTest::keyClick(&picker, Qt::Key_Home);
    typeDigits(picker, "01022023");
    QCOMPARE(picker.date(), QDate(2023, 2, 1));
    QTest::keyClick(&picker, Qt::Key_End);
    typeDigits(picker, "2024");
    QCOMPARE(picker.date(), QDate(2024, 2, 1));
}

void tst_controls::pickerTakesTheDateThatIsTyped_data()
{
    QTest::addColumn<QDate>("before");
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QDate>("date");
    const QDate june(2024, 6, 15);
    const QDate february(2023, 2, 10);
    QTest::newRow("the 31st over June") << june << QByteArray("31122024") << QDate(2024, 12, 31);
    QTest::newRow("with its bars") << june << QByteArray("31/12/2024") << QDate(2024, 12, 31);
    QTest::newRow("the 31st over February") << february << QByteArray("31122022") << QDate(2022, 12, 31);
    QTest::newRow("the 31st over February with its bars")
        << february << QByteArray("31/12/2022") << QDate(2022, 12, 31);
    QTest::newRow("the 30th over February") << february << QByteArray("30042023") << QDate(2023, 4, 30);
    QTest::newRow("a leap day over another year") << february << QByteArray("29022024") << QDate(2024, 2, 29);
    QTest::newRow("from a leap day") << QDate(2024, 2, 29) << QByteArray("28022023") << QDate(2023, 2, 28);
    QTest::newRow("a day and a month") << june << QByteArray("3107") << QDate(2024, 7, 31);
    QTest::newRow("numbers of one digit") << june << QByteArray("1/2/2023") << QDate(2023, 2, 1);
    QTest::newRow("a month of one digit behind the 31st") << june << QByteArray("31/1/2023") << QDate(2023, 1, 31);
    QTest::newRow("a digit that none can follow") << february << QByteArray("4/9/2023") << QDate(2023, 9, 4);
    QTest::newRow("a day alone") << june << QByteArray("3") << QDate(2024, 6, 3);
    QTest::newRow("a month alone behind the 31st") << june << QByteArray("311") << QDate(2024, 1, 31);
    QTest::newRow("a day that the month does not have") << june << QByteArray("31") << QDate(2024, 6, 30);
    QTest::newRow("a date that is none") << june << QByteArray("31022023") << QDate(2023, 2, 28);
    QTest::newRow("a day that no month has") << june << QByteArray("32") << june;
    QTest::newRow("a day that is typed again") << june << QByteArray("3231122024") << QDate(2024, 12, 31);
    QTest::newRow("a month that no year has") << june << QByteArray("01130722") << QDate(2022, 7, 1);
    QTest::newRow("a year of two digits") << june << QByteArray("311223") << QDate(2023, 12, 31);
    QTest::newRow("with its bars and two digits") << june << QByteArray("31/12/23") << QDate(2023, 12, 31);
    QTest::newRow("a leap day of two digits") << february << QByteArray("290224") << QDate(2024, 2, 29);
    QTest::newRow("a year of the last century") << june << QByteArray("010198") << QDate(1998, 1, 1);
    QTest::newRow("half a year") << june << QByteArray("0102202") << QDate(2024, 2, 1);
    QTest::newRow("a zero alone") << june << QByteArray("0") << june;
    QTest::newRow("no day") << june << QByteArray("00") << june;
}

/// Left by Tab, as a clerk does.
void tst_controls::pickerTakesTheDateThatIsTyped()
{
    QFETCH(QDate, before);
    QFETCH(QByteArray, typed);
    QWidget window;
    ui::DTPicker picker(&window);
    QLineEdit next(&window);
    picker.setDate(before);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    picker.setFocus();
    QTest::keyClick(&picker, Qt::Key_Home);
    typeDigits(picker, typed.constData());
    QTest::keyClick(&picker, Qt::Key_Tab);
    QVERIFY(next.hasFocus());
    QTEST(picker.date(), "date");
    QCOMPARE(picker.text(), picker.date().toString(u"dd/MM/yyyy"_s));
}

void tst_controls::pickerForgetsADayThatWasTypedForAnotherDate()
{
    ui::DTPicker picker;
    picker.setDate(QDate(2024, 6, 15));
    picker.show();
    picker.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&picker));
    QTest::keyClick(&picker, Qt::Key_Home);
    typeDigits(picker, "31");
    picker.setDate(QDate(2024, 6, 20));
    picker.setSelectedSection(QDateTimeEdit::MonthSection);
    typeDigits(picker, "12");
    QCOMPARE(picker.date(), QDate(2024, 12, 20));
}

void tst_controls::pickerTakesDigitsWhereItIsClicked()
{
    ui::DTPicker picker;
    picker.setDate(QDate(2024, 5, 15));
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));
    auto *edit = picker.findChild<QLineEdit *>();
    const int month = edit->fontMetrics().horizontalAdvance(u"15/0"_s) + 4;
    QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(month, edit->height() / 2));
    typeDigits(picker, "09");
    QCOMPARE(picker.date(), QDate(2024, 9, 15));
}

void tst_controls::iconComesFromTheTheme()
{
    for (const auto &name :
         {u"document-print"_s, u"document-open"_s, u"list-add"_s, u"list-remove"_s, u"edit-find"_s}) {
        QVERIFY2(!ui::icon(name).isNull(), qPrintable(name));
        QCOMPARE(ui::icon(name).name(), name);
    }
}

void tst_controls::iconFollowsThePalette()
{
    {
        const Palette light(Qt::white, Qt::black);
        QVERIFY(darkestOf(ui::icon(u"list-add"_s)).lightness() < 128);
    }
    const Palette dark(QColor(32, 32, 32), Qt::white);
    QVERIFY(darkestOf(ui::icon(u"list-add"_s)).lightness() > 128);
}

void tst_controls::iconOnTheScreenFollowsThePalette()
{
    const auto shown = ui::icon(u"list-add"_s);
    QVERIFY(darkestOf(shown).lightness() < 128);
    {
        const Palette dark(QColor(32, 32, 32), Qt::white);
        QVERIFY(darkestOf(shown).lightness() > 128);
    }
    QVERIFY(darkestOf(shown).lightness() < 128);
}

void tst_controls::iconsComeFromTheProgramAlone()
{
    QCOMPARE(QIcon::themeSearchPaths(), QStringList{u":/icones"_s});
    const auto twice = ui::icon(u"car"_s).pixmap(QSize(22, 22), 2);
    QCOMPARE(twice.size(), QSize(44, 44));
    QCOMPARE(QIcon::fromTheme(u"dialog-information"_s).name(), u"dialog-information"_s);
    QVERIFY(QIcon::fromTheme(u"text-x-generic"_s).isNull());
}

void tst_controls::unknownIconIsDrawn()
{
    const auto drawn = ui::icon(u"no-such-icon"_s);
    QVERIFY(!drawn.isNull());
    QVERIFY(drawn.name().isEmpty());
    QVERIFY(darkestOf(drawn).lightness() < 128);
}

/// A box of any kind takes its width from the value that it is made for, in the font that it has.
void tst_controls::boxIsAsWideAsItsSample()
{
    QLineEdit edit;
    QComboBox combo;
    ui::Label value;
    value.setFrameShape(QFrame::StyledPanel);
    for (auto *box : std::initializer_list<QWidget *>{&edit, &combo, &value}) {
        box->setProperty("amostra", u"88/88/8888 88:88:88"_s);
        const int needed = box->fontMetrics().horizontalAdvance(u"28/12/2024 20:48:58"_s);
        QVERIFY(box->minimumSizeHint().width() > needed);
        QVERIFY(box->sizeHint().width() < 2 * needed);
        auto font = box->font();
        font.setPointSizeF(font.pointSizeF() * 2);
        box->setFont(font);
        QVERIFY(box->sizeHint().width() > box->fontMetrics().horizontalAdvance(u"28/12/2024 20:48:58"_s));
    }
}

void tst_controls::aToneIsReadOnLightAndOnDark_data()
{
    QTest::addColumn<int>("tone");
    QTest::newRow("good") << int(ui::Tone::Good);
    QTest::newRow("pending") << int(ui::Tone::Pending);
    QTest::newRow("warning") << int(ui::Tone::Warning);
}

void tst_controls::aToneIsReadOnLightAndOnDark()
{
    QFETCH(const int, tone);
    constexpr double leastContrast = 4.5;
    for (const auto &ground : {QColor(239, 239, 239), QColor(49, 54, 59)}) {
        const QColor text = ground.lightness() < 128 ? Qt::white : Qt::black;
        const Palette desktop(ground, text);
        QLabel label;
        ui::setTone(label, ui::Tone(tone));
        const auto shown = [&label] { return label.palette().color(QPalette::WindowText); };
        QVERIFY(shown() != text);
        QVERIFY(support::contrast(shown(), ground) > leastContrast);
        QCOMPARE(label.palette().color(QPalette::Window), ground);
        ui::setTone(label, ui::Tone::Normal);
        QCOMPARE(shown(), text);
    }
}

void tst_controls::valueKeepsItsSize()
{
    ui::Label value;
    value.setFrameShape(QFrame::StyledPanel);
    value.setProperty("amostra", u"8.888,88"_s);
    const auto empty = value.sizeHint();
    value.setText(u"1.234.567,89"_s);
    QCOMPARE(value.sizeHint(), empty);
    QCOMPARE(value.minimumSizeHint(), empty);
    QCOMPARE(value.sizeHint().height(), QLineEdit().sizeHint().height());
    value.resize(empty);
    QVERIFY(value.isCut());
    value.setText(u"1,00"_s);
    QVERIFY(!value.isCut());
}

void tst_controls::enlargedTextFollowsTheProgramsFont()
{
    const auto before = QApplication::font();
    ui::Label total;
    total.setProperty("ampliacao", 160);
    total.ensurePolished();
    QCOMPARE(total.font().pointSizeF(), before.pointSizeF() * 1.6);
    auto larger = before;
    larger.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(larger);
    QEvent change(QEvent::ApplicationFontChange); // Qt tells it to all while the program runs
    QCoreApplication::sendEvent(&total, &change);
    const qreal enlarged = total.font().pointSizeF();
    QApplication::setFont(before);
    QCOMPARE(enlarged, larger.pointSizeF() * 1.6);
}

void tst_controls::linesFollowTheFont()
{
    QPlainTextEdit lines;
    lines.setProperty("linhas", 2);
    lines.ensurePolished();
    QVERIFY(lines.minimumHeight() >= 2 * lines.fontMetrics().lineSpacing());
    QVERIFY(lines.minimumHeight() < 3 * lines.fontMetrics().lineSpacing());
    auto font = lines.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    lines.setFont(font);
    QVERIFY(lines.minimumHeight() >= 2 * lines.fontMetrics().lineSpacing());
}

void tst_controls::emptyCheckBoxShowsOnBothPalettes()
{
    const QList<std::pair<QColor, QColor>> palettes{{Qt::white, Qt::black}, {QColor(32, 32, 32), Qt::white}};
    for (const auto &[ground, text] : palettes) {
        const Palette palette(ground, text);
        QCheckBox box;
        box.resize(40, 40);
        const auto picture = box.grab().toImage();
        int contrast = 0;
        for (int x = 0; x < picture.width(); ++x) {
            const int lightness = picture.pixelColor(x, picture.height() / 2).lightness();
            contrast = std::max(contrast, std::abs(lightness - ground.lightness()));
        }
        QVERIFY2(contrast > 40, qPrintable(QString::number(contrast)));
    }
}

void tst_controls::waitLetsEventsRun()
{
    ui::setWaitFactor(1);
    bool ran = false;
    QTimer::singleShot(0, this, [&] { ran = true; });
    ui::Espera(0.05);
    ui::setWaitFactor(0);
    QVERIFY(ran);
    ran = false;
    QTimer::singleShot(0, this, [&] { ran = true; });
    ui::DoEvents();
    QVERIFY(ran);
}

void tst_controls::waitLastsItsTime()
{
    QElapsedTimer clock;
    clock.start();
    ui::setWaitFactor(0.1);
    ui::Espera(1);
    ui::setWaitFactor(0);
    QVERIFY(clock.elapsed() >= 95);
    clock.restart();
    ui::Espera(3600);
    QVERIFY(clock.elapsed() < 5000);
}

void tst_controls::waitingPointerComesAndGoes()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    {
        const ui::Hourglass outer;
        const ui::Hourglass inner;
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

int main(int argc, char **argv)
{
    return support::runTest<tst_controls>(argc, argv);
}

#include "tst_controls.moc"
