#include "platform/ui/boxes.h"
#include "platform/ui/filebox.h"
#include "support/boxes.h"
#include "support/testmain.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <functional>

using namespace Qt::StringLiterals;

namespace
{

constexpr int pollMilliseconds = 5;

/// Looks at the open box once, from inside its event loop.
void whenBox(const std::function<void(QWidget *)> &action)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        if (auto *box = QApplication::activeModalWidget()) {
            timer->stop();
            timer->deleteLater();
            action(box);
        }
    });
    timer->start(pollMilliseconds);
}

QString plain(QString caption)
{
    return caption.remove(u'&');
}

QStringList captionsOf(const QWidget *box)
{
    QStringList captions;
    for (const auto *button : box->findChildren<QPushButton *>()) {
        captions.append(plain(button->text()));
    }
    captions.sort();
    return captions;
}

/// Where the values behind the tabs of a box's lines stand.
QList<qreal> valuePlaces(const QWidget &box)
{
    QList<qreal> places;
    const auto *document = box.findChild<QTextDocument *>();
    for (auto block = document->begin(); block.isValid(); block = block.next()) {
        const auto tab = int(block.text().indexOf(u'\t'));
        if (tab >= 0) {
            const auto line = block.layout()->lineForTextPosition(tab + 1);
            places.append(line.cursorToX(tab + 1));
        }
    }
    return places;
}

} // namespace

class tst_boxes : public QObject
{
    Q_OBJECT

private slots:
    void init() { ui::setBoxTitle(u"OFICINA DO ZÉ"_s); }

    void messageCarriesTextTitleIconAndPortugueseButton();
    void textIsNeverReadAsMarkup();
    void questionAnswers_data();
    void questionAnswers();
    void yesIsTheDefaultButton();
    void theLetterOfAButtonAnswers();
    void escapeIsNo();
    void closingAQuestionIsNo();
    void escapeIsCancel();
    void okAndCancelAnswer();
    void callMayGiveItsOwnTitle();
    void inputBoxOffersItsDefaultSelected();
    void inputBoxTakesWhatIsTypedOver();
    void inputBoxCancelledIsEmpty();
    void inputBoxKeepsLineBreaksOfThePrompt();
    void valuesBehindTabsStandInOneColumn();
    void aLongValueGoesOnBelowItself();
    void inputBoxIsAsWideAsWhatItAsksFor_data();
    void inputBoxIsAsWideAsWhatItAsksFor();
    void boxComesUpBesideAValueThatMustStayVisible_data();
    void boxComesUpBesideAValueThatMustStayVisible();
    void boxIsModalAboveTheActiveWindow();
    void boxSurvivesAParentThatGoes();
    void fileBoxGivesThePath();
    void fileBoxChangesNothingOnTheDisk();
    void fileBoxLeftByEscIsEmpty();
    void fileBoxSurvivesAParentThatGoes();

    void unexpectedBoxFailsTheTest();
    void boxThatDiffersFailsTheTest_data();
    void boxThatDiffersFailsTheTest();
    void boxThatNeverCameFailsTheTest();
};

void tst_boxes::messageCarriesTextTitleIconAndPortugueseButton()
{
    QPointer<QWidget> seen;
    whenBox([&](QWidget *widget) {
        seen = widget;
        auto *box = qobject_cast<QMessageBox *>(widget);
        QVERIFY(box);
        QCOMPARE(box->text(), u"Nome Inválido"_s);
        QCOMPARE(box->windowTitle(), u"OFICINA DO ZÉ"_s);
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(captionsOf(box), QStringList{u"OK"_s});
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    ui::MsgBox(u"Nome Inválido"_s, ui::Icon::Exclamation);
    QVERIFY(!seen);
}

void tst_boxes::textIsNeverReadAsMarkup()
{
    QString text;
    whenBox([&](QWidget *box) {
        text = box->findChild<QLabel *>(u"qt_msgbox_label"_s)->text();
        QCOMPARE(static_cast<QMessageBox *>(box)->textFormat(), Qt::PlainText);
        QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
    });
    ui::MsgBox(u"<b>JOSÉ</b>"_s, ui::Icon::Information);
    QCOMPARE(text, u"<b>JOSÉ</b>"_s);
}

void tst_boxes::questionAnswers_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("Sim") << true;
    QTest::newRow("Não") << false;
}

void tst_boxes::questionAnswers()
{
    QFETCH(bool, yes);
    support::Boxes boxes;
    boxes.title(u"OFICINA DO ZÉ"_s).question(u"Confirma a Inclusão"_s, yes);
    QCOMPARE(ui::Confirm(u"Confirma a Inclusão"_s), yes);
}

void tst_boxes::yesIsTheDefaultButton()
{
    QStringList captions;
    whenBox([&](QWidget *box) {
        captions = captionsOf(box);
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    QVERIFY(ui::Confirm(u"Confirma"_s));
    QCOMPARE(captions, (QStringList{u"Não"_s, u"Sim"_s}));
}

void tst_boxes::theLetterOfAButtonAnswers()
{
    whenBox([](QWidget *box) { QTest::keyClick(box->windowHandle(), Qt::Key_N); });
    QVERIFY(!ui::Confirm(u"Confirma"_s));
}

void tst_boxes::escapeIsNo()
{
    whenBox([](QWidget *box) { QTest::keyClick(box->windowHandle(), Qt::Key_Escape); });
    QVERIFY(!ui::Confirm(u"Confirma"_s));
}

void tst_boxes::closingAQuestionIsNo()
{
    whenBox([](QWidget *box) { box->close(); });
    QVERIFY(!ui::Confirm(u"Confirma"_s));
}

void tst_boxes::escapeIsCancel()
{
    whenBox([](QWidget *box) {
        QCOMPARE(captionsOf(box), (QStringList{u"Cancelar"_s, u"OK"_s}));
        QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
    });
    QVERIFY(!ui::ConfirmOk(u"Illegal Characters <A> found"_s, ui::Icon::Exclamation));
}

void tst_boxes::okAndCancelAnswer()
{
    support::Boxes boxes;
    boxes.okCancel(u"Segue?"_s, QMessageBox::Warning, true).okCancel(u"Segue?"_s, QMessageBox::Critical, false);
    QVERIFY(ui::ConfirmOk(u"Segue?"_s, ui::Icon::Exclamation));
    QVERIFY(!ui::ConfirmOk(u"Segue?"_s, ui::Icon::Critical));
}

void tst_boxes::callMayGiveItsOwnTitle()
{
    support::Boxes boxes;
    boxes.title(u"PROGRAM ERROR"_s).information(u"x"_s);
    ui::MsgBox(u"x"_s, ui::Icon::Information, u"PROGRAM ERROR"_s);
}

void tst_boxes::inputBoxOffersItsDefaultSelected()
{
    QString selected;
    whenBox([&](QWidget *box) {
        QCOMPARE(box->windowTitle(), u"OFICINA DO ZÉ"_s);
        QCOMPARE(captionsOf(box), (QStringList{u"Cancelar"_s, u"OK"_s}));
        selected = box->findChild<QLineEdit *>()->selectedText();
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    QCOMPARE(ui::InputBox(u"Quantidade"_s, ui::boxTitle(), u"01"_s), u"01"_s);
    QCOMPARE(selected, u"01"_s);
}

void tst_boxes::inputBoxTakesWhatIsTypedOver()
{
    support::Boxes boxes;
    boxes.input(u"Descrição"_s, u"Óleo, 1,5 l"_s).inputKeep(u"Código"_s, u"0007"_s);
    QCOMPARE(ui::InputBox(u"Descrição"_s, ui::boxTitle(), u"FILTRO"_s), u"Óleo, 1,5 l"_s);
    QCOMPARE(ui::InputBox(u"Código"_s, ui::boxTitle(), u"0007"_s), u"0007"_s);
}

void tst_boxes::inputBoxCancelledIsEmpty()
{
    support::Boxes boxes;
    boxes.inputCancel(u"Descrição"_s);
    QCOMPARE(ui::InputBox(u"Descrição"_s, ui::boxTitle(), u"FILTRO"_s), QString());
}

void tst_boxes::inputBoxKeepsLineBreaksOfThePrompt()
{
    support::Boxes boxes;
    boxes.input(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s, u"P"_s);
    QCOMPARE(ui::InputBox(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s), u"P"_s);
}

void tst_boxes::valuesBehindTabsStandInOneColumn()
{
    const QString text = u"Código:\t0001\nNome Cliente:\tMARIA\nCor:\t\nAno:\t2019/2020\n"_s;
    QList<qreal> places;
    whenBox([&](QWidget *box) {
        QCOMPARE(static_cast<QMessageBox *>(box)->text(), text);
        places = valuePlaces(*box);
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    ui::MsgBox(text, ui::Icon::Information);
    QCOMPARE(places.size(), 4);
    QCOMPARE(QSet<qreal>(places.begin(), places.end()).size(), 1);
    QVERIFY(places.first() > QFontMetrics(QApplication::font()).horizontalAdvance(u"Nome Cliente:"_s));
}

void tst_boxes::aLongValueGoesOnBelowItself()
{
    const QString text = u"Cor:\tAZUL\nObservações:\t"_s + u"RISCO NA PORTA "_s.repeated(20) + u'\n';
    whenBox([&](QWidget *box) {
        const auto *document = box->findChild<QTextDocument *>();
        const auto block = document->begin().next();
        QVERIFY(block.layout()->lineCount() > 2);
        for (int line = 1; line < block.layout()->lineCount(); ++line) {
            QCOMPARE(block.layout()->lineAt(line).x(), valuePlaces(*box).first());
        }
        QVERIFY(box->height() > block.layout()->lineCount() * QFontMetrics(box->font()).height());
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    ui::MsgBox(text, ui::Icon::Information);
}

void tst_boxes::inputBoxIsAsWideAsWhatItAsksFor_data()
{
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("offered");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    QTest::newRow("a code") << u"Código"_s << u"0001"_s << 10 << 40;
    QTest::newRow("a description") << u"Descrição"_s << QString(50, u'X') << 50 << 100;
    QTest::newRow("a long prompt") << u"Digite o Valor de Tapeceiro/Vidraceiro por extenso"_s << QString() << 30 << 70;
    QTest::newRow("no wider than the screen") << u"Descrição"_s << QString(1000, u'X') << 20 << 1000;
}

void tst_boxes::inputBoxIsAsWideAsWhatItAsksFor()
{
    QFETCH(QString, prompt);
    QFETCH(QString, offered);
    QFETCH(int, least);
    QFETCH(int, most);
    int width = 0;
    int screen = 0;
    whenBox([&](QWidget *box) {
        width = box->findChild<QLineEdit *>()->width();
        screen = box->screen()->availableGeometry().width();
        QVERIFY(box->findChild<QLabel *>()->width() >= QFontMetrics(box->font()).horizontalAdvance(prompt));
        QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
    });
    ui::InputBox(prompt, u"OFICINA"_s, offered);
    const QFontMetrics metrics(QApplication::font());
    QVERIFY2(width >= least * metrics.averageCharWidth(), qPrintable(QString::number(width)));
    QVERIFY2(width <= most * metrics.averageCharWidth(), qPrintable(QString::number(width)));
    QVERIFY(width < screen);
    if (offered.size() < 100) {
        QVERIFY(width > metrics.horizontalAdvance(offered));
    }
}

void tst_boxes::boxComesUpBesideAValueThatMustStayVisible_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("in the middle") << QPoint(350, 270);
    QTest::newRow("above the middle") << QPoint(350, 240);
    QTest::newRow("below the middle") << QPoint(350, 300);
}

void tst_boxes::boxComesUpBesideAValueThatMustStayVisible()
{
    QFETCH(QPoint, place);
    QWidget window;
    window.setGeometry(0, 0, 780, 560);
    QLabel change(u"12,50"_s, &window);
    change.setGeometry(QRect(place, QSize(80, 24)));
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto coveredBy = [&] {
        QRect box;
        whenBox([&](QWidget *shown) {
            box = shown->frameGeometry();
            QTest::keyClick(shown->windowHandle(), Qt::Key_Return);
        });
        ui::Confirm(u"Fechar O.S. com Pagamento À Vista"_s);
        return box.intersects(QRect(change.mapToGlobal(QPoint(0, 0)), change.size()));
    };
    QVERIFY(coveredBy());
    ui::keepVisible(&change);
    QVERIFY(!coveredBy());
}

void tst_boxes::boxIsModalAboveTheActiveWindow()
{
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QWidget *parent = nullptr;
    auto modality = Qt::NonModal;
    whenBox([&](QWidget *box) {
        parent = box->parentWidget();
        modality = box->windowModality();
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    ui::MsgBox(u"x"_s, ui::Icon::Information);
    QCOMPARE(parent, &window);
    QCOMPARE(modality, Qt::ApplicationModal);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

void tst_boxes::boxSurvivesAParentThatGoes()
{
    auto *window = new QWidget;
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    whenBox([&](QWidget *) { delete window; });
    QVERIFY(!ui::Confirm(u"x"_s));
}

void tst_boxes::fileBoxGivesThePath()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"LOGO.BMP"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QStringList seen;
    whenBox([&](QWidget *box) {
        seen = {box->windowTitle(), qobject_cast<QFileDialog *>(box)->nameFilters().join(u'|')};
        auto *line = box->findChild<QLineEdit *>(u"fileNameEdit"_s);
        line->setText(file.fileName());
        QTest::keyClick(line, Qt::Key_Return);
    });
    QCOMPARE(ui::OpenFileBox(u"Escolha"_s, u"Figuras (*.bmp)"_s), file.fileName());
    QCOMPARE(seen, (QStringList{u"Escolha"_s, u"Figuras (*.bmp)"_s}));
}

void tst_boxes::fileBoxChangesNothingOnTheDisk()
{
    bool readOnly = false;
    whenBox([&](QWidget *box) {
        readOnly = qobject_cast<QFileDialog *>(box)->testOption(QFileDialog::ReadOnly);
        QTest::keyClick(box, Qt::Key_Escape);
    });
    ui::OpenFileBox(u"Escolha"_s, u"Figuras (*.bmp)"_s);
    QVERIFY(readOnly);
}

void tst_boxes::fileBoxLeftByEscIsEmpty()
{
    whenBox([](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
    QCOMPARE(ui::OpenFileBox(u"Escolha"_s, u"Figuras (*.bmp)"_s), QString());
}

void tst_boxes::fileBoxSurvivesAParentThatGoes()
{
    auto *window = new QWidget;
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    whenBox([window](QWidget *) { delete window; });
    QCOMPARE(ui::OpenFileBox(u"Escolha"_s, u"Figuras (*.bmp)"_s), QString());
}

void tst_boxes::unexpectedBoxFailsTheTest()
{
    QStringList failures;
    support::Boxes boxes;
    boxes.reportTo([&](const QString &text) { failures.append(text); });
    ui::MsgBox(u"x"_s, ui::Icon::Information);
    QVERIFY(!ui::Confirm(u"apaga?"_s));
    QCOMPARE(failures.size(), 2);
    QVERIFY(failures.first().contains(u"unexpected"_s));
}

void tst_boxes::boxThatDiffersFailsTheTest_data()
{
    QTest::addColumn<std::function<void(support::Boxes &)>>("expect");
    using Expect = std::function<void(support::Boxes &)>;
    QTest::newRow("text") << Expect([](support::Boxes &boxes) { boxes.question(u"grava?"_s, true); });
    QTest::newRow("icon") << Expect([](support::Boxes &boxes) { boxes.information(u"apaga?"_s); });
    QTest::newRow("kind") << Expect([](support::Boxes &boxes) { boxes.input(u"apaga?"_s, u"sim"_s); });
    QTest::newRow("buttons") << Expect(
        [](support::Boxes &boxes) { boxes.okCancel(u"apaga?"_s, QMessageBox::Question, true); });
    QTest::newRow("title") << Expect(
        [](support::Boxes &boxes) { boxes.title(u"OUTRA"_s).question(u"apaga?"_s, false); });
}

void tst_boxes::boxThatDiffersFailsTheTest()
{
    QFETCH(std::function<void(support::Boxes &)>, expect);
    QStringList failures;
    support::Boxes boxes;
    boxes.reportTo([&](const QString &text) { failures.append(text); });
    expect(boxes);
    QVERIFY(!ui::Confirm(u"apaga?"_s));
    QCOMPARE(failures.size(), 1);
}

void tst_boxes::boxThatNeverCameFailsTheTest()
{
    QStringList failures;
    {
        support::Boxes boxes;
        boxes.reportTo([&](const QString &text) { failures.append(text); });
        boxes.information(u"y"_s).inputCancel(u"z"_s);
    }
    QCOMPARE(failures.size(), 2);
    QVERIFY(failures.first().contains(u"never came"_s));
}

int main(int argc, char **argv)
{
    return support::runTest<tst_boxes>(argc, argv);
}

#include "tst_boxes.moc"
