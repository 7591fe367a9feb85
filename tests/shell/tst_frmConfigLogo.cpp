#include "tests/shell/configura.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

const QString window = u"frmConfigLogo"_s;
const QString invalid = u"Formato de arquivo inválido. É somente aceito arquivos com extensão .BMP"_s;
const QString saved = u"Gravação efetuada com sucesso!"_s;
const QString failed = u"Ocorreu um erro na gravação"_s;

ui::Form *form()
{
    return ui::Forms::instance().find(window);
}

QLabel *image(const QString &name)
{
    return support::control<QLabel>(form(), name);
}

QColor colourOf(const QString &name)
{
    const QImage shown = image(name)->pixmap().toImage();
    return shown.isNull() ? QColor() : shown.pixelColor(shown.rect().center());
}

/// One colour, and another in the last quarter of its width, which tells a picture that is cut from one that is scaled.
QImage picture(Qt::GlobalColor colour, QSize size = {400, 100})
{
    QImage made(size, QImage::Format_RGB32);
    made.fill(colour);
    for (int x = size.width() * 3 / 4; x < size.width(); ++x) {
        for (int y = 0; y < size.height(); ++y) {
            made.setPixelColor(x, y, Qt::black);
        }
    }
    return made;
}

/// What a user does in the box that asks for a file.
class FileAnswer
{
public:
    explicit FileAnswer(const QString &file) : file_(file)
    {
        timer_.callOnTimeout([this] { look(); });
        timer_.start(1);
    }

    bool asked = false;
    QString title;
    QStringList filters;
    bool readOnly = false;

private:
    void look()
    {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible()) {
            return;
        }
        timer_.stop();
        asked = true;
        title = dialog->windowTitle();
        filters = dialog->nameFilters();
        readOnly = dialog->testOption(QFileDialog::ReadOnly);
        support::Boxes::checkWhileUp(u"the box that asks for a file"_s);
        auto *line = dialog->findChild<QLineEdit *>(u"fileNameEdit"_s);
        if (file_.isEmpty() || line == nullptr) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        line->setText(file_);
        QTest::keyClick(line, Qt::Key_Return);
    }

    QString file_;
    QTimer timer_;
};

} // namespace

/// The logo of the printed forms.
class TstFrmConfigLogo : public SettingsTest
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void opensAsAChildWithTheLogo();
    void opensWithoutALogo();
    void theButtonsStandWithTheirCaptions();
    void loadsAPictureIntoAllThree();
    void aCancelledBoxChangesNothing();
    void refusesAnotherExtension_data();
    void refusesAnotherExtension();
    void takesTheExtensionInCapitals();
    void refusesAFileThatIsNoPicture();
    void savesThePictureInItsSize();
    void whatIsLoadedIsSavedOnlyOnDemand();
    void savingTwiceChangesNothing();
    void aPictureOfAnySizeIsScaled_data();
    void aPictureOfAnySizeIsScaled();
    void transparencyIsWhite();
    void whatAKilledWriteLeftIsCleared();
    void tellsOfAFailedWrite_data();
    void tellsOfAFailedWrite();
    void leaves_data();
    void leaves();

private:
    QString logo() const { return program_->path(u"DADOS/logo.bmp"_s); }
    void open();
    QString put(const QString &name, const QImage &made, const char *format = "BMP") const;
    void load(const QString &path);
};

void TstFrmConfigLogo::open()
{
    choose(u"itmConfigLogo"_s);
    QVERIFY(form() != nullptr);
}

QString TstFrmConfigLogo::put(const QString &name, const QImage &made, const char *format) const
{
    const QString path = program_->path(name);
    if (!made.save(path, format)) {
        qFatal("no picture %s", qPrintable(path));
    }
    return path;
}

void TstFrmConfigLogo::load(const QString &path)
{
    const FileAnswer answer(path);
    support::click(form(), u"Command1"_s);
    QVERIFY(answer.asked);
    boxes_->finish();
}

void TstFrmConfigLogo::opensAsAChildWithTheLogo()
{
    put(u"DADOS/logo.bmp"_s, picture(Qt::red));
    open();
    QVERIFY(!form()->isModal());
    QVERIFY(qobject_cast<QMdiSubWindow *>(form()->parentWidget()) != nullptr);
    QCOMPARE(form()->windowTitle(), u"Tarvelo - [Configuração de Logo]"_s);
    for (const auto &name : {u"Image1"_s, u"Image2"_s, u"Picture1"_s}) {
        QCOMPARE(colourOf(name), QColor(Qt::red));
    }
    QCOMPARE(image(u"Picture1"_s)->size(), image(u"Image2"_s)->size());
    QCOMPARE(image(u"Picture1"_s)->pixmap().size(), image(u"Picture1"_s)->size());
}

void TstFrmConfigLogo::opensWithoutALogo()
{
    open();
    QVERIFY(image(u"Picture1"_s)->pixmap().isNull());
    const auto *save = support::control<QPushButton>(form(), u"Command6"_s);
    QVERIFY(!save->isEnabled());
    QCOMPARE(save->toolTip(), u"Salvar a Imagem atial como Logo\nCarregue uma imagem"_s);
    load(put(u"nova.bmp"_s, picture(Qt::red)));
    QVERIFY(save->isEnabled());
    boxes_->information(saved);
    support::click(form(), u"Command6"_s);
    boxes_->finish();
    QVERIFY(QFile::exists(logo()));
}

void TstFrmConfigLogo::theButtonsStandWithTheirCaptions()
{
    open();
    QCOMPARE(support::text(form(), u"Command1"_s).remove(u'&'), u"Carrega Imagem para Logo"_s);
    QCOMPARE(support::text(form(), u"Command6"_s).remove(u'&'), u"Salvar a Imagem atial como Logo"_s);
}

void TstFrmConfigLogo::loadsAPictureIntoAllThree()
{
    put(u"DADOS/logo.bmp"_s, picture(Qt::red));
    const QString other = put(u"outra.bmp"_s, picture(Qt::blue));
    open();
    const FileAnswer answer(other);
    support::click(form(), u"Command1"_s);
    QCOMPARE(answer.title, u"Selecione uma Imagem com seu Logo"_s);
    QCOMPARE(answer.filters, QStringList{u"*.bmp - Arquivos BMP (bitmaps) (*.bmp)"_s});
    QVERIFY(answer.readOnly); // nobody renames a picture there by mistake
    for (const auto &name : {u"Image1"_s, u"Image2"_s, u"Picture1"_s}) {
        QCOMPARE(colourOf(name), QColor(Qt::blue));
    }
}

void TstFrmConfigLogo::aCancelledBoxChangesNothing()
{
    put(u"DADOS/logo.bmp"_s, picture(Qt::red));
    open();
    load({});
    QCOMPARE(colourOf(u"Picture1"_s), QColor(Qt::red));
    QVERIFY(support::control<QPushButton>(form(), u"Command1"_s)->hasFocus());
}

void TstFrmConfigLogo::refusesAnotherExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("png") << u"logo.png"_s;
    QTest::newRow("none") << u"logo"_s;
    QTest::newRow("no point") << u"logobmp"_s;
    QTest::newRow("one more letter") << u"logo.bmpx"_s;
}

void TstFrmConfigLogo::refusesAnotherExtension()
{
    QFETCH(const QString, name);
    put(u"DADOS/logo.bmp"_s, picture(Qt::red));
    const QString other = put(name, picture(Qt::blue));
    open();
    boxes_->exclamation(invalid);
    load(other);
    QCOMPARE(colourOf(u"Picture1"_s), QColor(Qt::red));
}

void TstFrmConfigLogo::takesTheExtensionInCapitals()
{
    open();
    load(put(u"LOGO NOVO.BMP"_s, picture(Qt::green)));
    QCOMPARE(colourOf(u"Picture1"_s), QColor(Qt::green));
}

void TstFrmConfigLogo::refusesAFileThatIsNoPicture()
{
    put(u"DADOS/logo.bmp"_s, picture(Qt::red));
    QFile file(program_->path(u"texto.bmp"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("BM, mas não é");
    file.close();
    open();
    boxes_->exclamation(invalid);
    load(file.fileName());
    QCOMPARE(colourOf(u"Picture1"_s), QColor(Qt::red));
}

void TstFrmConfigLogo::savesThePictureInItsSize()
{
    open();
    load(put(u"nova.bmp"_s, picture(Qt::blue)));
    boxes_->information(saved);
    support::click(form(), u"Command6"_s);
    boxes_->finish();
    const QImage stored(logo(), "BMP");
    QCOMPARE(stored.size(), image(u"Image2"_s)->size());
    QCOMPARE(stored.pixelColor(5, 5), QColor(Qt::blue));
    QCOMPARE(stored.pixelColor(stored.width() - 5, stored.height() - 5), QColor(Qt::black));
    QCOMPARE(QDir(program_->path(u"DADOS"_s)).entryList({u"logo*"_s}), QStringList{u"logo.bmp"_s});
    QVERIFY(form() != nullptr); // stays open
}

void TstFrmConfigLogo::whatIsLoadedIsSavedOnlyOnDemand()
{
    put(u"DADOS/logo.bmp"_s, picture(Qt::red));
    open();
    load(put(u"nova.bmp"_s, picture(Qt::blue)));
    support::click(form(), u"btnVoltar"_s);
    QVERIFY(form() == nullptr);
    QCOMPARE(QImage(logo()).pixelColor(5, 5), QColor(Qt::red));
    open();
    QCOMPARE(colourOf(u"Picture1"_s), QColor(Qt::red));
}

void TstFrmConfigLogo::savingTwiceChangesNothing()
{
    put(u"DADOS/logo.bmp"_s, picture(Qt::red, {1200, 350}));
    QByteArray first;
    for (int time = 0; time < 2; ++time) {
        open();
        boxes_->information(saved);
        support::click(form(), u"Command6"_s);
        boxes_->finish();
        support::click(form(), u"btnVoltar"_s);
        QVERIFY(form() == nullptr);
        QFile file(logo());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QVERIFY(time == 0 || bytes == first);
        first = bytes;
    }
}

void TstFrmConfigLogo::aPictureOfAnySizeIsScaled_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("high") << QSize(40, 400);
    QTest::newRow("wide") << QSize(3000, 100);
    QTest::newRow("a photograph") << QSize(4000, 3000);
}

void TstFrmConfigLogo::aPictureOfAnySizeIsScaled()
{
    QFETCH(const QSize, size);
    QImage made(size, QImage::Format_RGB32);
    made.fill(Qt::blue);
    open();
    const QSize before = form()->size();
    load(put(u"nova.bmp"_s, made));
    QCoreApplication::processEvents();
    QCOMPARE(form()->size(), before);
    QCOMPARE(image(u"Picture1"_s)->pixmap().size(), image(u"Image2"_s)->size());
    const QImage shown = image(u"Picture1"_s)->pixmap().toImage();
    for (const QPoint corner : {shown.rect().topLeft(), shown.rect().bottomRight()}) {
        QCOMPARE(shown.pixelColor(corner), QColor(Qt::blue));
    }
    QVERIFY(image(u"Image1"_s)->pixmap().width() <= image(u"Image1"_s)->width());
    QVERIFY(image(u"Image1"_s)->pixmap().height() <= image(u"Image1"_s)->height());
}

void TstFrmConfigLogo::transparencyIsWhite()
{
    QImage made(400, 100, QImage::Format_ARGB32);
    made.fill(Qt::transparent);
    open();
    load(put(u"nova.bmp"_s, made, "PNG")); // a bitmap by its name
    QCOMPARE(colourOf(u"Picture1"_s), QColor(Qt::white));
}

void TstFrmConfigLogo::whatAKilledWriteLeftIsCleared()
{
    put(u"DADOS/logo.bmp"_s, picture(Qt::red));
    QFile left(program_->path(u"DADOS/logo.bmp.gravando-0123abcd"_s));
    QVERIFY(left.open(QIODevice::WriteOnly));
    left.close();
    open();
    boxes_->information(saved);
    support::click(form(), u"Command6"_s);
    boxes_->finish();
    QCOMPARE(QDir(program_->path(u"DADOS"_s)).entryList({u"logo*"_s}), QStringList{u"logo.bmp"_s});
}

void TstFrmConfigLogo::tellsOfAFailedWrite_data()
{
    QTest::addColumn<int>("obstacle");
    QTest::newRow("the folder is gone") << 0;
    QTest::newRow("a folder of that name") << 1;
    QTest::newRow("read-only") << 2;
}

void TstFrmConfigLogo::tellsOfAFailedWrite()
{
    QFETCH(const int, obstacle);
    open();
    load(put(u"nova.bmp"_s, picture(Qt::blue)));
    if (obstacle == 0) {
        core::ArquivoLogo = core::App::Path() + u"\\ausente\\logo.bmp"_s;
    } else if (obstacle == 1) {
        QVERIFY(QDir(program_->path(u"DADOS"_s)).mkdir(u"logo.bmp"_s));
    } else {
        put(u"DADOS/logo.bmp"_s, picture(Qt::red));
        QVERIFY(QFile::setPermissions(logo(), QFile::ReadOwner));
    }
    boxes_->exclamation(failed);
    support::click(form(), u"Command6"_s);
    boxes_->finish();
    QCOMPARE(QImage(logo()).isNull(), obstacle != 2);
    if (obstacle == 2) {
        QCOMPARE(QImage(logo()).pixelColor(5, 5), QColor(Qt::red));
    }
    QCOMPARE(colourOf(u"Picture1"_s), QColor(Qt::blue)); // to be tried again
}

void TstFrmConfigLogo::leaves_data()
{
    QTest::addColumn<bool>("key");
    QTest::newRow("btnVoltar") << false;
    QTest::newRow("Esc") << true;
}

void TstFrmConfigLogo::leaves()
{
    QFETCH(const bool, key);
    open();
    if (key) {
        support::key(form(), u"Command1"_s, Qt::Key_Escape);
    } else {
        support::click(form(), u"btnVoltar"_s);
    }
    QVERIFY(form() == nullptr);
    QVERIFY(!QFile::exists(logo()));
}

TARVELO_TEST_MAIN(TstFrmConfigLogo)
#include "tst_frmConfigLogo.moc"
