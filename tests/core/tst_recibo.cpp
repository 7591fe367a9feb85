#include "core/modulo.h"
#include "core/recibo.h"
#include "support/program.h"

#include <QImage>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

class Papel : public printer::PagedSurface
{
public:
    void EndDoc() override { folhas = takePages(); }

    std::vector<printer::Page> folhas;
};

printer::Page impresso(const core::Recibo &recibo)
{
    Papel papel;
    core::ImprimeRecibo(recibo, papel);
    [&] { QCOMPARE(papel.folhas.size(), 1U); }();
    return papel.folhas.front();
}

double centimetros(double twips)
{
    return twips / printer::twipsPerCentimetre;
}

const printer::TextMark &texto(const printer::Page &folha, const QString &comeco)
{
    for (const printer::Mark &marca : folha.marks()) {
        const auto *escrita = std::get_if<printer::TextMark>(&marca);
        if (escrita != nullptr && escrita->text.startsWith(comeco)) {
            return *escrita;
        }
    }
    qFatal("No text %s", qPrintable(comeco));
}

const core::Recibo recibo{
    .valor = u"150,00"_s,
    .linhas = {u"Valor Extenso.: CENTO E CINQUENTA REAIS"_s, u"Data..........: 15/05/2024"_s},
};

} // namespace

class TestRecibo : public QObject
{
    Q_OBJECT

private slots:
    void init() { programa_ = std::make_unique<support::Program>(); }
    void cleanup() { programa_.reset(); }

    void tellsTheAmountTheLinesAndWhereToSign();
    void standsWhereThePaperHasItsPlaces();
    void aLineGoesToTheEdgeOfTheSheetAndOnBelow();
    void takesASecondTitle();
    void showsTheLogo();

private:
    std::unique_ptr<support::Program> programa_;
};

void TestRecibo::tellsTheAmountTheLinesAndWhereToSign()
{
    const QStringList linhas = impresso(recibo).lines();
    QCOMPARE(linhas.first().trimmed(), u"RECIBO R$ 150,00"_s);
    QCOMPARE(linhas.mid(1), (QStringList{
                                u""_s,
                                u""_s,
                                u"Valor Extenso.: CENTO E CINQUENTA REAIS"_s,
                                u"Data..........: 15/05/2024"_s,
                                u""_s,
                                u""_s,
                                u""_s,
                                u""_s,
                                u""_s,
                                QString(26, u' ') + QString(44, u'_'),
                                QString(43, u' ') + u"ASSINATURA"_s,
                            }));
}

void TestRecibo::standsWhereThePaperHasItsPlaces()
{
    const printer::Page folha = impresso(recibo);
    const printer::TextMark titulo = texto(folha, u"  RECIBO R$ "_s);
    QCOMPARE(titulo.font, (printer::Font{u"Courier New"_s, 18, true, false}));
    QCOMPARE(centimetros(titulo.position.x()), 12.0);
    QCOMPARE(centimetros(titulo.position.y()), 2.0);

    const printer::TextMark extenso = texto(folha, u"Valor"_s);
    QCOMPARE(extenso.font, (printer::Font{u"Courier New"_s, 10, false, false}));
    QCOMPARE(extenso.position.x(), 0.0);
    QCOMPARE(extenso.position.y(), 4 * printer::twipsPerCentimetre + 2 * printer::lineHeight(extenso.font));
}

/// 96 characters stand on a line; the words of a large amount are more.
void TestRecibo::aLineGoesToTheEdgeOfTheSheetAndOnBelow()
{
    const QString inteira = u"Descrição.....: "_s + QString(80, u'X');
    const QStringList linhas =
        impresso({.valor = u"987.654,32"_s,
                  .linhas = {u"Valor Extenso.: NOVECENTOS E OITENTA E SETE MIL SEISCENTOS E CINQUENTA E QUATRO REAIS E "
                             "TRINTA E DOIS CENTAVOS"_s,
                             inteira, inteira + u'X'}})
            .lines();
    QCOMPARE(linhas.mid(3, 5),
             (QStringList{
                 u"Valor Extenso.: NOVECENTOS E OITENTA E SETE MIL SEISCENTOS E CINQUENTA E QUATRO REAIS E TRINTA E"_s,
                 u"DOIS CENTAVOS"_s, inteira, u"Descrição.....:"_s, QString(81, u'X')}));
}

void TestRecibo::takesASecondTitle()
{
    core::Recibo parcial = recibo;
    parcial.segundoTitulo = u"    PAGAMENTO PARCIAL"_s;
    const printer::Page folha = impresso(parcial);
    const printer::TextMark titulo = texto(folha, u"    PAGAMENTO PARCIAL"_s);
    QCOMPARE(titulo.font, (printer::Font{u"Courier New"_s, 18, true, false}));
    QCOMPARE(centimetros(titulo.position.x()), 12.0);
    QCOMPARE(titulo.position.y(), 2 * printer::twipsPerCentimetre + printer::lineHeight(titulo.font));
    QCOMPARE(texto(folha, u"Valor"_s).position, texto(impresso(recibo), u"Valor"_s).position);
}

void TestRecibo::showsTheLogo()
{
    QVERIFY(std::get_if<printer::PictureMark>(&impresso(recibo).marks().front()) == nullptr);

    QImage logo(12, 4, QImage::Format_RGB32);
    logo.fill(Qt::red);
    QVERIFY(logo.save(programa_->path(u"logo.bmp"_s)));
    core::ArquivoLogo = programa_->path(u"logo.bmp"_s);
    const printer::Page folha = impresso(recibo);
    const auto *figura = std::get_if<printer::PictureMark>(&folha.marks().front());
    QVERIFY(figura != nullptr);
    QCOMPARE(centimetros(figura->position.x()), 0.0);
    QCOMPARE(centimetros(figura->position.y()), 1.0);
    QCOMPARE(centimetros(figura->size.width()), 12.0);
    QCOMPARE(centimetros(figura->size.height()), 3.5);
    QCOMPARE(figura->picture.pixelColor(0, 0), QColor(Qt::red));
}

TARVELO_TEST_MAIN(TestRecibo)
#include "tst_recibo.moc"
