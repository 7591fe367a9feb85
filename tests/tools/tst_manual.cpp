#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/ui/forms.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/menus.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/diskfiles.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QAction>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include <algorithm>

using namespace Qt::StringLiterals;
using support::contentsOf;

namespace
{

constexpr int widestPicture = 760;

/// The first group of every match, in order.
QStringList all(const QString &pattern, const QString &text)
{
    QStringList found;
    for (const auto &match : QRegularExpression(pattern).globalMatch(text)) {
        found << match.captured(1);
    }
    return found;
}

QString withoutMnemonic(QString caption)
{
    return caption.remove(u'&');
}

/// The commands as the manual writes them: the menu, then the item.
QStringList commandsOfTheMenus()
{
    QMenuBar bar;
    shell::montaMenus(bar);
    QStringList commands;
    for (const auto *menu : bar.findChildren<QMenu *>()) {
        for (const auto *item : menu->actions()) {
            if (!item->text().isEmpty()) {
                commands << withoutMnemonic(menu->title()) + u" › "_s + withoutMnemonic(item->text());
            }
        }
    }
    return commands;
}

/// All that the program's sources and layouts say, literals that stand one behind the other joined.
QString wordsOfTheProgram()
{
    QString words;
    for (const auto &folder : {u"core"_s, u"documents"_s, u"estimates"_s, u"finance"_s, u"platform"_s, u"registers"_s,
                               u"reports"_s, u"shell"_s, u"stock"_s, u"tools/importa"_s, u"workorders"_s}) {
        QDirIterator files(QStringLiteral(SOURCES) + u'/' + folder, {u"*.cpp"_s, u"*.h"_s, u"*.ui"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            words += QString::fromUtf8(contentsOf(files.next()));
        }
    }
    words.remove(QRegularExpression(u"\"(_s)?\\s*\\n\\s*u?\""_s));
    words.replace(QRegularExpression(u"(\\\\r|\\\\n)+"_s), u" "_s);
    return words.replace(u"&quot;"_s, u"\""_s).replace(u"&lt;"_s, u"<"_s).remove(u'&').simplified();
}

} // namespace

/// The manual that this build made, and the tool that makes it.
class TestManual : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void isOneFileThatAsksForNothingElse();
    void hasASectionForEveryWindow();
    void namesEveryCommandAsTheMenusDo();
    void quotesNothingThatTheProgramDoesNotSay();
    void explainsEveryMessage();
    void showsEveryPicture();
    void theProgramsWindowGoesToEverySection();

    void aGoodTextBecomesAPage();
    void whatIsWrongWithATextIsTold_data();
    void whatIsWrongWithATextIsTold();

private:
    QString html_;
};

void TestManual::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    reports::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    html_ = QString::fromUtf8(contentsOf(QStringLiteral(MANUAL)));
    QVERIFY(html_.startsWith(u"<!DOCTYPE html>"));
}

void TestManual::isOneFileThatAsksForNothingElse()
{
    const auto sources = all(u"\\bsrc=\"([^\"]{0,40})"_s, html_);
    QVERIFY(sources.size() >= 25);
    for (const auto &source : sources) {
        QVERIFY2(source.startsWith(u"data:image/png;base64,"), qPrintable(source));
    }
    const auto links = all(u"\\bhref=\"([^\"]*)\""_s, html_);
    QVERIFY(!links.isEmpty());
    for (const auto &link : links) {
        QVERIFY2(link.startsWith(u'#'), qPrintable(link));
    }
    auto places = all(u"\\b(?:id|name)=\"([^\"]*)\""_s, html_); // a name that stands twice leads to one place alone
    QVERIFY(places.size() > 60);
    QCOMPARE(places.removeDuplicates(), 0);
    for (const auto &way : {u"http"_s, u"file:"_s, u"url("_s, u"@import"_s, u"<link"_s, u"<script"_s}) {
        QVERIFY2(!html_.contains(way), qPrintable(way));
    }
}

void TestManual::hasASectionForEveryWindow()
{
    const auto anchors = all(u"<h[23] id=\"(\\w+)\">"_s, html_);
    auto windows = ui::Forms::instance().names();
    QVERIFY(windows.size() >= 35);
    windows << u"frmMDI"_s; // the one that no other window knows by its name
    for (const auto &window : windows) {
        QVERIFY2(anchors.contains(window), qPrintable(window));
    }
}

void TestManual::namesEveryCommandAsTheMenusDo()
{
    auto told = all(u"<strong>([^<]+ › [^<]+)</strong>"_s, html_);
    told.removeDuplicates();
    const auto commands = commandsOfTheMenus();
    QVERIFY(commands.size() > 60);
    for (const auto &command : told) {
        QVERIFY2(commands.contains(command), qPrintable(command));
    }
    for (const auto &command : commands) {
        QVERIFY2(told.contains(command), qPrintable(command));
    }
}

void TestManual::quotesNothingThatTheProgramDoesNotSay()
{
    const auto words = wordsOfTheProgram();
    const auto text = QString::fromUtf8(contentsOf(QStringLiteral(SOURCES) + u"/docs/manual.pt-BR.md"_s));
    const auto quotes = all(u"“([^”]*)”"_s, text);
    QVERIFY(quotes.size() > 150);
    for (const auto &quote : quotes) {
        for (const auto &piece : quote.split(u'…')) { // what differs from time to time
            const auto said = piece.simplified();
            QVERIFY2(said.size() < 2 || words.contains(said), qPrintable(quote));
        }
    }
}

/// What a box says as it stands in the sources: its first piece, where something is put in.
void TestManual::explainsEveryMessage()
{
    const auto text = QString::fromUtf8(contentsOf(QStringLiteral(SOURCES) + u"/docs/manual.pt-BR.md"_s)).simplified();
    const auto words = wordsOfTheProgram();
    QStringList messages;
    for (const auto &call : {u"(?:MsgBox|ClosingBox|InputBox|Recusa|Confirm|ConfirmOk|recusa)\\("_s,
                             u"ValidaCampo\\([^,]*, "_s, u"enableIf\\([^;]*?, "_s}) {
        messages << all(u"\\b"_s + call + u"u\"([^\"]*)\""_s, words);
    }
    messages.removeDuplicates();
    QVERIFY(messages.size() > 90);
    messages.removeIf(
        [&](const QString &message) { return text.contains(message.left(message.indexOf(u'%')).trimmed()); });
    QVERIFY2(messages.isEmpty(), qPrintable(messages.join(u'\n')));
}

void TestManual::showsEveryPicture()
{
    const auto pictures = all(u"base64,([^\"]*)\""_s, html_);
    QVERIFY(pictures.size() >= 25);
    for (const auto &picture : pictures) {
        const auto image = QImage::fromData(QByteArray::fromBase64(picture.toLatin1()), "PNG");
        QVERIFY(!image.isNull());
        QVERIFY2(image.width() <= widestPicture, qPrintable(QString::number(image.width())));
    }
    // Told to who can't see it.
    QCOMPARE(all(u"<img alt=\"([^\"]+)\""_s, html_).size(), pictures.size());
}

void TestManual::theProgramsWindowGoesToEverySection()
{
    QTextBrowser browser;
    browser.resize(800, 600);
    browser.setHtml(html_);
    browser.show();
    QVERIFY(QTest::qWaitForWindowExposed(&browser));
    const auto *bar = browser.verticalScrollBar();
    int before = 0;
    for (const auto &anchor : all(u"<h[23] id=\"([^\"]+)\">"_s, html_)) {
        browser.scrollToAnchor(anchor);
        QVERIFY2(bar->value() > before || bar->value() == bar->maximum(), qPrintable(anchor));
        before = bar->value();
    }
}

namespace
{

struct Run {
    int code = -1;
    QString words;
    QString page;
};

/// Makes a page of a text, beside a picture `boa.png` and one, `ruim.png`, that is none.
Run makePage(const QString &text)
{
    const QTemporaryDir folder;
    const auto write = [&](const QString &name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    };
    QImage good(30, 20, QImage::Format_RGB32);
    good.fill(Qt::white);
    if (!good.save(folder.filePath(u"boa.png"_s)) || !write(u"ruim.png"_s, "GIF89a") ||
        !write(u"texto.md"_s, text.toUtf8())) {
        return {};
    }
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(QStringLiteral(PYTHON), {QStringLiteral(SOURCES) + u"/tools/manual/manual.py"_s,
                                        folder.filePath(u"texto.md"_s), folder.path(), folder.filePath(u"p.html"_s)});
    if (!tool.waitForFinished()) {
        return {};
    }
    return {tool.exitCode(), QString::fromUtf8(tool.readAll()),
            QString::fromUtf8(contentsOf(folder.filePath(u"p.html"_s)))};
}

} // namespace

void TestManual::aGoodTextBecomesAPage()
{
    const auto run = makePage(u"# Um & dois\n\n[ali](#frmX)\n\n## Ali {#frmX}\n\n![figura](imagens/boa.png)\n\n"
                              "| a | b |\n|---|---|\n| 1 | 2 |\n"_s);
    QVERIFY2(run.code == 0, qPrintable(run.words));
    QVERIFY(run.page.contains(u"<title>Um &amp; dois</title>"));
    QVERIFY(run.page.contains(u"<h2 id=\"frmX\">Ali</h2>"));
    QVERIFY(run.page.contains(u"width=\"30\" height=\"20\""));
    QVERIFY(run.page.contains(u"<td>1</td>"));
}

void TestManual::whatIsWrongWithATextIsTold_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("told");
    QTest::newRow("a picture that is missing") << u"# T\n\n![x](imagens/outra.png)"_s << u"outra.png"_s;
    QTest::newRow("a picture that is none") << u"# T\n\n![x](imagens/ruim.png)"_s << u"ruim.png"_s;
    QTest::newRow("a link that leads nowhere") << u"# T\n\n[x](#frmOutra)"_s << u"#frmOutra"_s;
    QTest::newRow("a link to another place") << u"# T\n\n[x](https://exemplo.com.br)"_s << u"exemplo.com.br"_s;
    QTest::newRow("an anchor twice") << u"# T\n\n## A {#frmX}\n\n## B {#frmX}"_s << u"frmX"_s;
    QTest::newRow("no title") << u"## T"_s << u"title"_s;
}

void TestManual::whatIsWrongWithATextIsTold()
{
    QFETCH(const QString, text);
    QFETCH(const QString, told);
    const auto run = makePage(text);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.words.contains(told), qPrintable(run.words));
    QVERIFY(!run.words.contains(u"Traceback"));
    QVERIFY(run.page.isEmpty());
}

TARVELO_TEST_MAIN(TestManual)
#include "tst_manual.moc"
