#include "core/embaralha.h"
#include "core/funcoes.h"
#include "platform/runtime/runtime.h"
#include "tests/fuzz/gerador.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

constexpr int inputs = 100'000;
constexpr quint32 seed = 20240515;

/// Keeps the lengths and the letters of what is printed.
class Counter : public printer::Surface
{
public:
    double Width() const override { return 1; }
    double Height() const override { return 1; }
    void setOrientation(printer::Orientation /*orientation*/) override {}
    void NewPage() override {}
    void EndDoc() override {}

    QString letters() const
    {
        QString all;
        for (const printer::Mark &mark : page_.marks()) {
            all += std::get<printer::TextMark>(mark).text;
        }
        return all.remove(u' ');
    }

    qsizetype longest() const
    {
        qsizetype length = 0;
        for (const printer::Mark &mark : page_.marks()) {
            length = std::max(length, std::get<printer::TextMark>(mark).text.size());
        }
        return length;
    }

protected:
    printer::Page &page() override { return page_; }

private:
    printer::Page page_;
};

class Textos : public fuzz::Gerador
{
public:
    Textos() : Gerador(seed) {}

    /// A text of the Western code page with the codes `first` to `last`.
    QString western(int longest, int first, int last)
    {
        QByteArray bytes(below(longest + 1), '\0');
        for (char &byte : bytes) {
            byte = static_cast<char>(first + below(last - first + 1));
        }
        return runtime::fromWestern(bytes);
    }

    /// Mostly base64, with whatever else may stand in a file that somebody edited.
    QString almostBase64()
    {
        static const QString characters =
            u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/====\r\n\t !ç€\u4e2d"_s;
        QString made;
        for (int i = below(200); i > 0; --i) {
            made += characters.at(below(static_cast<int>(characters.size())));
        }
        return made;
    }

    QString words()
    {
        QString made;
        for (int i = below(150); i > 0; --i) {
            made += oneIn(6) ? u' ' : QChar(u'a' + below(26));
        }
        return made;
    }
};

} // namespace

class TestFuzzCore : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { core::setPerguntaBase64({}); }

    void readsBackWhatItScrambled();
    void cutsALongValueAt48Characters();
    void decodesAnything();
    void stopsWhereToldTo();
    void shiftsAnythingWithoutGrowingIt();
    void wrapsAnyTextWithoutLosingALetter();
};

void TestFuzzCore::readsBackWhatItScrambled()
{
    Textos any;
    for (int i = 0; i < inputs; ++i) {
        const QString text = any.western(120, 0, 252);
        const QString shifted = core::DeslocaTexto(text, true);
        QCOMPARE(core::DeslocaTexto(shifted, false), text);
        QCOMPARE(core::Desembaralha(core::Embaralha(text)), text);
    }
}

void TestFuzzCore::cutsALongValueAt48Characters()
{
    Textos any;
    for (int i = 0; i < inputs / 10; ++i) {
        const QString text = any.western(200, 3, 252);
        const QString firstLine = core::Embaralha(text).section(u"\r\n"_s, 0, 0);
        QCOMPARE(core::Desembaralha(firstLine), text.left(48));
    }
}

void TestFuzzCore::decodesAnything()
{
    Textos any;
    int asked = 0;
    core::setPerguntaBase64([&](const QString &text, const QString &) {
        ++asked;
        return text.startsWith(u"Illegal Characters <");
    });
    for (int i = 0; i < inputs; ++i) {
        const QString text = any.almostBase64();
        QString bare = text;
        bare.removeIf([](QChar c) { return c.isSpace(); });
        QCOMPARE(core::Base64Decodifica(text).size(), (bare.size() + 3) / 4 * 3);
        QVERIFY(core::Desembaralha(text).size() <= (bare.size() + 3) / 4 * 3);
    }
    QVERIFY(asked > 0);
}

void TestFuzzCore::stopsWhereToldTo()
{
    Textos any;
    core::setPerguntaBase64([](const QString &, const QString &) { return false; });
    for (int i = 0; i < inputs / 10; ++i) {
        QString text = any.western(45, 3, 252);
        text.chop(text.size() % 3); // whole groups, without padding
        QCOMPARE(core::Base64Decodifica(core::Base64Codifica(text) + u"!!!!QUJD"_s), text);
    }
}

void TestFuzzCore::shiftsAnythingWithoutGrowingIt()
{
    Textos any;
    for (int i = 0; i < inputs; ++i) {
        const QString text = any.western(80, 0, 255);
        QVERIFY(core::DeslocaTexto(text, true).size() <= text.size());
        QVERIFY(core::DeslocaTexto(text, false).size() <= text.size());
    }
}

void TestFuzzCore::wrapsAnyTextWithoutLosingALetter()
{
    Textos any;
    for (int i = 0; i < inputs; ++i) {
        const QString text = any.words();
        const int width = any.below(60);
        Counter paper;
        core::ImprimeQuebrado(text, width, paper);
        QCOMPARE(paper.letters(), QString(text).remove(u' '));
        QVERIFY(width == 0 || paper.longest() <= width);
    }
}

QTEST_GUILESS_MAIN(TestFuzzCore)
#include "tst_fuzz_core.moc"
