#include "core/modos.h"
#include "core/modulo.h"
#include "finance/finance.h"
#include "shell/frmMDI.h"
#include "stock/entrada.h"
#include "stock/notasentrada.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <QAction>

#include <memory>

using namespace Qt::StringLiterals;
using support::click;
using support::text;

namespace
{

const QString zero = u"0,00"_s;

} // namespace

/// The general balance inside the program: from its command in the menu of reports, over what other windows wrote.
class TstBalancoUsos : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { finance::registerForms(); }
    void init();
    void cleanup();

    void itsCommandOpensItInThePlainMode();
    void aCommandBringsTheSameSheetForward();
    void notesOfSuppliersAreWhatPartsCost();
    void aNoteThatIsPaidChangesSides();

private:
    QStringList gastos() const;
    void abre();
    qint32 nota(const QString &quantidade, const QString &unitario, const QString &total) const;

    std::unique_ptr<support::Program> programa_;
    std::unique_ptr<support::Boxes> caixas_;
    ui::Form *janela_ = nullptr;
    QString peca_;
};

void TstBalancoUsos::init()
{
    programa_ = std::make_unique<support::Program>();
    caixas_ = std::make_unique<support::Boxes>();
    peca_ = QString::number(programa_->part(u"FILTRO"_s, u"P"_s, u"50,00"_s, true));
    shell::principal().MDIForm_Load();
    shell::principal().resize(1024, 768);
    shell::principal().show();
    QVERIFY(QTest::qWaitForWindowActive(&shell::principal()));
}

void TstBalancoUsos::cleanup()
{
    caixas_.reset();
    ui::Forms::instance().unloadAll();
    shell::fechaPrincipal();
    programa_.reset();
}

void TstBalancoUsos::abre()
{
    shell::principal().findChild<QAction *>(u"itmRelaBalanco"_s)->trigger();
    janela_ = ui::Forms::instance().find(u"frmBalanco"_s);
    QVERIFY(janela_ != nullptr);
}

QStringList TstBalancoUsos::gastos() const
{
    QStringList textos;
    for (int coluna = 0; coluna < 4; ++coluna) {
        textos << text(janela_, u"lblLinha2_%1"_s.arg(coluna));
    }
    return textos;
}

qint32 TstBalancoUsos::nota(const QString &quantidade, const QString &unitario, const QString &total) const
{
    return stock::IncluiNota({.codFornecedor = u"0001"_s,
                              .observacoes = {},
                              .valor = total,
                              .linhas = {{peca_, u"P"_s, quantidade, u"FILTRO"_s, unitario, total}}});
}

void TstBalancoUsos::itsCommandOpensItInThePlainMode()
{
    core::ModoChamada = core::modoRelaOrigem;
    abre();
    QCOMPARE(core::ModoChamada, qint16{core::modoNormal});
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Balanço Geral]"_s);
}

void TstBalancoUsos::aCommandBringsTheSameSheetForward()
{
    abre();
    click(janela_, u"btnPreenche"_s);
    const auto *aberta = janela_;
    abre();
    QCOMPARE(janela_, aberta);
    QCOMPARE(gastos(), (QStringList{u"00"_s, zero, zero, zero}));
}

void TstBalancoUsos::notesOfSuppliersAreWhatPartsCost()
{
    nota(u"10"_s, u"12,50"_s, u"125,00"_s);
    nota(u"1.000"_s, u"1,25"_s, u"1.250,00"_s);
    abre();
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(gastos(), (QStringList{u"02"_s, u"1.375,00"_s, zero, u"1.375,00"_s}));
    click(janela_, u"btnCalcular"_s);
    QCOMPARE(text(janela_, u"lblTotal_0"_s), u"02"_s);
    QCOMPARE(text(janela_, u"lblTotal_1"_s), u"-1.375,00"_s);
    QCOMPARE(text(janela_, u"lblTotal_2"_s), zero);
    QCOMPARE(text(janela_, u"lblTotal_3"_s), u"-1.375,00"_s);
}

void TstBalancoUsos::aNoteThatIsPaidChangesSides()
{
    const qint32 numero = nota(u"10"_s, u"12,50"_s, u"125,00"_s);
    nota(u"2"_s, u"10,00"_s, u"20,00"_s);
    abre();
    QVERIFY(stock::PagaNota(numero, u"15/05/2024"_s));
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(gastos(), (QStringList{u"02"_s, u"145,00"_s, u"125,00"_s, u"20,00"_s}));
    stock::ExcluiNota(numero);
    QCOMPARE(gastos(), (QStringList{u"02"_s, u"145,00"_s, u"125,00"_s, u"20,00"_s}));
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(gastos(), (QStringList{u"01"_s, u"20,00"_s, zero, u"20,00"_s}));
}

TARVELO_TEST_MAIN(TstBalancoUsos)
#include "tst_frmBalanco_usos.moc"
