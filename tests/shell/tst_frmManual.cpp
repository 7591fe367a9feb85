#include "manualdeteste.h"
#include "support/cputime.h"
#include "support/palette.h"

#include <QBuffer>
#include <QDesktopServices>
#include <QImage>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace manualdeteste;
using ui::Forms;

namespace
{

/// A picture as the manual carries it, inside its own text.
QString picture(const QColor &color, QSize size = {40, 30})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return u"<img src=\"data:image/png;base64,"_s + QString::fromLatin1(bytes.toBase64()) +
           u"\" width=\"%1\">"_s.arg(size.width());
}

/// Opens what the system would be asked to open.
class Opener : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public slots:
    void open(const QUrl &url) { opened << url; }
};

} // namespace

/// The window of the manual.
class TstFrmManual : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { cenario_ = std::make_unique<Cenario>(); }
    void cleanup() { cenario_.reset(); }

    void aLinkLeadsToItsSectionAndBack();
    void aLinkOutLeadsNowhere_data();
    void aLinkOutLeadsNowhere();
    void keysWalkTheLinks();
    void keysGoOnFromWhatIsShown();
    void enterFollowsTheLink();
    void enterFollowsALinkThatWasFound();
    void enterOnALinkOutStays();
    void enterWithoutALinkGoesOn();
    void nothingIsReadBesidesTheFile();
    void picturesInsideAreShown();
    void theStyleIsTheProgramsOwn();
    void itIsReadableOnADarkDesktop();
    void largePicturesOpenQuickly();
    void searchGoesFromPlaceToPlace();
    void searchPassesAccentsOver_data();
    void searchPassesAccentsOver();
    void searchBeginsAtTheSection();
    void searchTellsWhatIsNotThere();
    void searchForNothingAsksForAText();
    void keysLeadToTheSearch();
    void keysTurnThePages();
    void theBrowserGetsTheFile();
    void aBrowserThatDoesNotOpenIsTold();
    void itIsLeftByEscAndByItsButton();
    void itTellsTheCompany();

private:
    std::unique_ptr<Cenario> cenario_;
};

void TstFrmManual::initTestCase()
{
    shell::registerForms();
}

// --- the page

namespace
{

/// Where a link stands on the page.
QPoint placeOfLink(const QString &href)
{
    for (QTextBlock block = page()->document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            if (piece.fragment().charFormat().anchorHref() == href) {
                QTextCursor cursor(page()->document());
                cursor.setPosition(piece.fragment().position() + 1);
                return page()->cursorRect(cursor).center();
            }
        }
    }
    return {};
}

void clickLink(const QString &href)
{
    const QPoint place = page()->viewport()->mapTo(page()->window(), placeOfLink(href));
    QTest::mouseClick(page()->window()->windowHandle(), Qt::LeftButton, {}, place);
}

} // namespace

void TstFrmManual::aLinkLeadsToItsSectionAndBack()
{
    shell::AbreManual(QString());
    clickLink(u"#frmCadaCliente"_s);
    QCOMPARE(topmost(), u"Cadastro de clientes"_s);
    support::key(manual(), u"txtManual"_s, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(topmost(), u"Manual do Tarvelo"_s);
}

void TstFrmManual::aLinkOutLeadsNowhere_data()
{
    QTest::addColumn<QString>("link");
    QTest::newRow("net") << u"http://example.com/"_s;
    QTest::newRow("another file") << u"outro.html"_s;
    QTest::newRow("section that is not there") << u"#nada"_s;
}

void TstFrmManual::aLinkOutLeadsNowhere()
{
    QFETCH(const QString, link);
    Opener opener;
    for (const auto &scheme : {u"http"_s, u"file"_s}) {
        QDesktopServices::setUrlHandler(scheme, &opener, "open");
    }
    shell::AbreManual(QString());
    QVERIFY(!placeOfLink(link).isNull());
    const QUrl before = page()->source();
    clickLink(link);
    for (const auto &scheme : {u"http"_s, u"file"_s}) {
        QDesktopServices::unsetUrlHandler(scheme);
    }
    QCOMPARE(page()->source(), before);
    QCOMPARE(topmost(), u"Manual do Tarvelo"_s);
    QVERIFY(opener.opened.isEmpty());
    QVERIFY(manual());
}

namespace
{

void pressOnPage(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    support::key(manual(), u"txtManual"_s, key, modifiers);
}

void nextLink()
{
    pressOnPage(Qt::Key_Down, Qt::ControlModifier);
}

void linkBefore()
{
    pressOnPage(Qt::Key_Up, Qt::ControlModifier);
}

QString chosen()
{
    return page()->textCursor().selectedText();
}

} // namespace

void TstFrmManual::keysWalkTheLinks()
{
    shell::AbreManual(QString());
    QVERIFY(chosen().isEmpty());
    for (const auto &link : {u"Clientes"_s, u"fora"_s, u"outro"_s, u"nada"_s}) {
        nextLink();
        QCOMPARE(chosen(), link);
    }
    nextLink(); // there is none behind the last one
    QCOMPARE(chosen(), u"nada"_s);
    for (const auto &link : {u"outro"_s, u"fora"_s, u"Clientes"_s, u"Clientes"_s}) {
        linkBefore();
        QCOMPARE(chosen(), link);
    }
}

void TstFrmManual::keysGoOnFromWhatIsShown()
{
    writeManual(
        u"<html><body><p><a href=\"#meio\">alto <b>e</b> largo</a></p>%1<h2 id=\"meio\">Meio</h2>"
        u"<p><a href=\"#fim\">dali</a></p>%1<h2 id=\"fim\">Fim</h2><p>pé</p></body></html>"_s.arg(filling(u"texto"_s)));
    shell::AbreManual(u"meio"_s);
    nextLink();
    QCOMPARE(chosen(), u"dali"_s);
    linkBefore();
    QCOMPARE(chosen(), u"alto e largo"_s); // one link, whatever the letters of its words
    QVERIFY(page()->viewport()->rect().contains(page()->cursorRect()));
    pressOnPage(Qt::Key_End);
    linkBefore(); // the one above what is shown, not above the one that was chosen
    QCOMPARE(chosen(), u"dali"_s);
    pressOnPage(Qt::Key_Home);
    nextLink();
    QCOMPARE(chosen(), u"alto e largo"_s);
}

void TstFrmManual::enterFollowsTheLink()
{
    shell::AbreManual(QString());
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        nextLink();
        QCOMPARE(chosen(), u"Clientes"_s);
        pressOnPage(key);
        QCOMPARE(topmost(), u"Cadastro de clientes"_s);
        QCOMPARE(cadastro::focusOf(manual()), u"txtManual"_s);
        pressOnPage(Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(topmost(), u"Manual do Tarvelo"_s);
    }
}

void TstFrmManual::enterFollowsALinkThatWasFound()
{
    shell::AbreManual(QString());
    support::type(manual(), u"txtLocalizar"_s, u"lient"_s, false);
    support::click(manual(), u"btnLocalizar"_s);
    QCOMPARE(chosen(), u"lient"_s);
    pressOnPage(Qt::Key_Return);
    QCOMPARE(topmost(), u"Cadastro de clientes"_s);
}

void TstFrmManual::enterOnALinkOutStays()
{
    shell::AbreManual(QString());
    nextLink();
    nextLink();
    QCOMPARE(chosen(), u"fora"_s);
    const QUrl before = page()->source();
    pressOnPage(Qt::Key_Return);
    QCOMPARE(page()->source(), before);
    QCOMPARE(topmost(), u"Manual do Tarvelo"_s);
    QCOMPARE(cadastro::focusOf(manual()), u"txtManual"_s);
}

void TstFrmManual::enterWithoutALinkGoesOn()
{
    shell::AbreManual(QString());
    pressOnPage(Qt::Key_Return);
    QCOMPARE(cadastro::focusOf(manual()), u"txtLocalizar"_s);
}

void TstFrmManual::nothingIsReadBesidesTheFile()
{
    QImage red(20, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    const QString beside = core::App::shipped(u"vermelho.png"_s);
    QVERIFY(red.save(beside));
    const auto gone = qScopeGuard([&] { QFile::remove(beside); });
    writeManual(u"<html><head><link rel=\"stylesheet\" href=\"estilo.css\"></head><body><h1>A</h1>"
                u"<p><img src=\"vermelho.png\" width=\"20\"></p></body></html>"_s);
    shell::AbreManual(QString());
    const QImage shown = page()->viewport()->grab().toImage();
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            QCOMPARE_NE(shown.pixelColor(x, y), QColor(Qt::red));
        }
    }
}

void TstFrmManual::picturesInsideAreShown()
{
    writeManual(u"<html><body><h1>A</h1><p>%1</p></body></html>"_s.arg(picture(Qt::red)));
    shell::AbreManual(QString());
    const QImage shown = page()->viewport()->grab().toImage();
    int red = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            red += shown.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
        }
    }
    QCOMPARE(red, 40 * 30);
}

void TstFrmManual::theStyleIsTheProgramsOwn()
{
    shell::AbreManual(QString());
    const QTextBlock heading = page()->document()->begin();
    QCOMPARE(heading.text(), u"Manual do Tarvelo"_s);
    QCOMPARE_NE(heading.begin().fragment().charFormat().foreground().color(), QColor(1, 2, 3));
    QVERIFY(!page()->document()->toPlainText().contains(u"#010203"));
}

void TstFrmManual::itIsReadableOnADarkDesktop()
{
    const QPalette before = QApplication::palette();
    const auto back = qScopeGuard([&] { QApplication::setPalette(before); });
    for (const QPalette &palette : {before, support::darkPalette()}) {
        QApplication::setPalette(palette);
        shell::AbreManual(QString());
        const QColor ground = page()->palette().color(QPalette::Base);
        QVERIFY(support::contrast(page()->palette().color(QPalette::Text), ground) >= 4.5);
        QTextCursor cursor(page()->document());
        cursor = page()->document()->find(u"Clientes"_s);
        QVERIFY(support::contrast(cursor.charFormat().foreground().color(), ground) >= 4.5);
        Forms::instance().Unload(window);
    }
}

/// As many pictures as the manual has, of its width. Measured in an ordinary build it is under half a second; built
/// with the checks of memory it is slower by far.
void TstFrmManual::largePicturesOpenQuickly()
{
    QString html = u"<html><body><h1>Manual</h1>"_s;
    for (int i = 0; i < 25; ++i) {
        html += u"<h2 id=\"s%1\">Seção %1</h2><p>%2</p>"_s.arg(i).arg(picture(QColor(i * 10, 90, 200), {760, 480})) +
                filling(u"texto da seção"_s);
    }
    writeManual(html + u"</body></html>"_s);
    shell::principal().MDIForm_Load();
    support::CpuTime clock;
    shell::AbreManual(u"s24"_s);
    QCOMPARE(topmost(), u"Seção 24"_s);
    const qint64 first = clock.milliseconds();
    clock.restart();
    shell::AbreManual(u"s3"_s);
    QCOMPARE(topmost(), u"Seção 3"_s);
    const qint64 again = clock.milliseconds();
    qInfo() << "first" << first << "ms, again" << again << "ms";
    QVERIFY(first < 5000);
    QVERIFY(again < 1000);
}

// --- its commands

void TstFrmManual::searchGoesFromPlaceToPlace()
{
    shell::AbreManual(QString());
    support::type(manual(), u"txtLocalizar"_s, u"abacaxi"_s, false);
    QCOMPARE(support::text(manual(), u"txtLocalizar"_s), u"ABACAXI"_s);
    support::click(manual(), u"btnLocalizar"_s);
    QCOMPARE(page()->textCursor().block().text(), u"Aqui está o ABACAXI."_s);
    QCOMPARE(page()->textCursor().selectedText(), u"ABACAXI"_s);
    support::click(manual(), u"btnLocalizar"_s);
    QCOMPARE(page()->textCursor().block().text(), u"Outro abacaxi."_s);
    support::click(manual(), u"btnLocalizar"_s); // behind the last one it begins anew
    QCOMPARE(page()->textCursor().block().text(), u"Aqui está o ABACAXI."_s);
    QVERIFY(page()->viewport()->rect().contains(page()->cursorRect()));
}

void TstFrmManual::searchPassesAccentsOver_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("left out") << u"solucao"_s;
    QTest::newRow("as they are") << u"solução"_s;
    QTest::newRow("others") << u"sôlucão"_s;
    QTest::newRow("of a letter alone") << u"e a solu"_s;
}

void TstFrmManual::searchPassesAccentsOver()
{
    QFETCH(const QString, typed);
    writeManual(
        u"<html><body><table><tr><td>um</td><td>dois</td></tr></table><p>Qual é&nbsp;a Solução?</p></body></html>"_s);
    shell::principal().MDIForm_Load();
    shell::AbreManual(QString());
    support::type(manual(), u"txtLocalizar"_s, typed, false);
    support::click(manual(), u"btnLocalizar"_s);
    const QString found = page()->textCursor().selectedText();
    QCOMPARE(found.size(), typed.size());
    QVERIFY2(u"Qual é\u00A0a Solução?"_s.contains(found) && found.contains(u"Solu"_s), qPrintable(found));
}

void TstFrmManual::searchBeginsAtTheSection()
{
    shell::AbreManual(u"frmInfo"_s);
    support::type(manual(), u"txtLocalizar"_s, u"abacaxi"_s, false);
    support::key(manual(), u"txtLocalizar"_s, Qt::Key_Return); // goes on to the button, as everywhere
    QCOMPARE(cadastro::focusOf(manual()), u"btnLocalizar"_s);
    support::key(manual(), u"btnLocalizar"_s, Qt::Key_Return);
    QCOMPARE(page()->textCursor().block().text(), u"Outro abacaxi."_s);
    QCOMPARE(cadastro::focusOf(manual()), u"btnLocalizar"_s); // and stays there for the next place
    support::key(manual(), u"btnLocalizar"_s, Qt::Key_Return);
    QCOMPARE(page()->textCursor().block().text(), u"Aqui está o ABACAXI."_s);
}

void TstFrmManual::searchTellsWhatIsNotThere()
{
    shell::AbreManual(u"frmInfo"_s);
    support::type(manual(), u"txtLocalizar"_s, u"jabuticaba"_s, false);
    cenario_->boxes->exclamation(u"Texto não localizado no manual"_s);
    support::click(manual(), u"btnLocalizar"_s);
    cenario_->boxes->finish();
    QCOMPARE(cadastro::focusOf(manual()), u"txtLocalizar"_s);
    QCOMPARE(support::control<QLineEdit>(manual(), u"txtLocalizar"_s)->selectedText(), u"JABUTICABA"_s);
    QCOMPARE(topmost(), u"Sobre o programa"_s);
}

void TstFrmManual::searchForNothingAsksForAText()
{
    shell::AbreManual(u"frmInfo"_s);
    support::click(manual(), u"btnLocalizar"_s);
    QCOMPARE(cadastro::focusOf(manual()), u"txtLocalizar"_s);
    QVERIFY(!page()->textCursor().hasSelection());
}

void TstFrmManual::keysLeadToTheSearch()
{
    shell::principal().MDIForm_Load();
    shell::AbreManual(u"frmInfo"_s);
    support::type(manual(), u"txtLocalizar"_s, u"abc"_s);
    support::key(manual(), u"txtManual"_s, Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(cadastro::focusOf(manual()), u"txtLocalizar"_s);
    QCOMPARE(support::control<QLineEdit>(manual(), u"txtLocalizar"_s)->selectedText(), u"ABC"_s);
    support::key(manual(), u"btnVoltar"_s, Qt::Key_L, Qt::AltModifier);
    QCOMPARE(cadastro::focusOf(manual()), u"txtLocalizar"_s);
}

void TstFrmManual::keysTurnThePages()
{
    shell::AbreManual(QString());
    auto *bar = page()->verticalScrollBar();
    support::key(manual(), u"txtManual"_s, Qt::Key_PageDown);
    const int onePage = bar->value();
    QVERIFY(onePage > 100);
    support::key(manual(), u"txtManual"_s, Qt::Key_Down);
    QVERIFY(bar->value() > onePage);
    support::key(manual(), u"txtManual"_s, Qt::Key_End);
    QCOMPARE(bar->value(), bar->maximum());
    support::key(manual(), u"txtManual"_s, Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
    support::key(manual(), u"txtManual"_s, Qt::Key_Tab); // past all links
    QCOMPARE(cadastro::focusOf(manual()), u"txtLocalizar"_s);
}

void TstFrmManual::theBrowserGetsTheFile()
{
    Opener opener;
    QDesktopServices::setUrlHandler(u"file"_s, &opener, "open");
    shell::AbreManual(u"frmInfo"_s);
    support::click(manual(), u"btnNavegador"_s);
    QDesktopServices::unsetUrlHandler(u"file"_s);
    QCOMPARE(opener.opened, QList<QUrl>{QUrl::fromLocalFile(manualFile())});
}

/// Off screen the system opens nothing.
void TstFrmManual::aBrowserThatDoesNotOpenIsTold()
{
    shell::AbreManual(QString());
    cenario_->boxes->exclamation(u"Não foi possível abrir o navegador. O manual está no arquivo:\n"_s + manualFile());
    support::click(manual(), u"btnNavegador"_s);
    cenario_->boxes->finish();
}

void TstFrmManual::itIsLeftByEscAndByItsButton()
{
    shell::AbreManual(QString());
    support::key(manual(), u"txtManual"_s, Qt::Key_Escape);
    QVERIFY(!manual());
    shell::AbreManual(QString());
    support::click(manual(), u"btnVoltar"_s);
    QVERIFY(!manual());
}

void TstFrmManual::itTellsTheCompany()
{
    core::NomeEmpresa = u"OFICINA DO ZÉ"_s;
    shell::AbreManual(QString());
    QCOMPARE(manual()->windowTitle(), u"OFICINA DO ZÉ - [Manual]"_s);
}

TARVELO_TEST_MAIN(TstFrmManual)
#include "tst_frmManual.moc"
