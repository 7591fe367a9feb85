#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "papel.h"
#include "platform/runtime/runtime.h"
#include "reports/reports.h"
#include "support/boxes.h"
#include "tools/amostra/amostra.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace core;
using cadastro::Rows;
using cadastro::rowsOf;
using support::click;

namespace
{

/// A field on paper: the column of the list, and how wide it is, negative where it stands on the right.
struct CampoNoPapel {
    int coluna;
    int largura;
};

/// A report and what its paper shows of a row.
struct Caso {
    const char *nome;
    qint16 modo;
    std::vector<CampoNoPapel> campos;
    QString fim = {};
    std::optional<bool> resposta = {}; ///< to the question ahead of the print
};

const std::vector<Caso> casos{
    {"stock", modoRelaEstoqueGeral, {{0, 6}, {1, 25}, {2, 20}, {3, 10}, {4, -10}, {5, -10}}},
    {"prices with costs", modoRelaPecas, {{0, 6}, {1, 22}, {2, 17}, {4, -10}, {5, -10}, {6, -10}, {7, 3}}, {}, true},
    {"prices without costs", modoRelaPecas, {{0, 6}, {1, 22}, {2, 30}, {5, -10}, {6, -10}, {7, 3}}, {}, false},
    {"shopping list", modoRelaCompras, {{0, 7}, {1, 40}, {2, -10}, {3, -10}}, u"   __________"_s},
    {"sold", modoRelaPecasVendidas, {{0, 7}, {1, 47}, {2, -10}, {3, -10}, {4, -10}}},
};

QString noPapel(const QStringList &linha, const Caso &caso)
{
    QStringList textos;
    for (const auto &[coluna, largura] : caso.campos) {
        const QString texto = linha.at(coluna).left(std::abs(largura));
        textos << (largura < 0 ? texto.rightJustified(-largura) : texto.leftJustified(largura));
    }
    QString impressa = textos.join(u"   "_s) + caso.fim;
    while (impressa.endsWith(u' ')) {
        impressa.chop(1);
    }
    return impressa;
}

const QString selecao = u"frmRelaSelecaoPecas"_s;
const QString doisAnos = DataSQL(u"15/05/2022"_s, 4, u"15/05/2024"_s);

/// The report, filled; that of what was sold, of two years of parts.
ui::Form *abre(qint16 modo)
{
    if (modo != modoRelaPecasVendidas) {
        return papel::abre(modo);
    }
    ui::Form *form = support::show(selecao);
    support::type(form, u"txtDataInicio"_s, u"15052022"_s);
    cadastro::choose(form, u"cboTipo"_s, 1);
    click(form, u"btnPreenche"_s);
    return papel::relatorio();
}

/// The workshop buys what runs low: two parts of three sell out here, over the counter.
void vendeQuaseTudo()
{
    auto peca = DBDados->OpenRecordset(
        u"SELECT Codigo, EstoqueMinimo FROM Pecas WHERE ControlaEstoque = True AND Codigo MOD 3 > 0"_s);
    for (; !peca.Eof(); peca.MoveNext()) {
        LancaNoRazao(razaoEstoque, {.dono = runtime::CStr(peca.value(0)),
                                    .descricao = u"BALCÃO"_s,
                                    .valor = runtime::CSng(peca.value(1)) / 2,
                                    .operacao = Operacao::Conferencia});
    }
}

int conta(const QString &consulta)
{
    int linhas = 0;
    for (auto linha = DBDados->OpenRecordset(consulta); !linha.Eof(); linha.MoveNext()) {
        ++linhas;
    }
    return linhas;
}

} // namespace

/// The reports of parts on a workshop of two years: what its database says and what the paper shows.
class TestRelaPecasOficina : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase() { programa_.reset(); }

    void theListsHoldWhatTheDatabaseSays();
    void whatIsToBeBoughtIsBelowItsMinimum();
    void theTotalIsThatOfTheLines();
    void thePaperShowsTheList_data();
    void thePaperShowsTheList();
    void thePreviewShowsThePaper_data();
    void thePreviewShowsThePaper();

private:
    std::unique_ptr<support::Program> programa_;
};

void TestRelaPecasOficina::initTestCase()
{
    reports::registerForms();
    programa_ = std::make_unique<support::Program>();
    amostra::Preenche({.clientes = 400, .semente = 1, .relogio = runtime::CDate(u"15/05/2024 10:30:00"_s)});
    vendeQuaseTudo();
}

void TestRelaPecasOficina::cleanup()
{
    for (const QString &janela : {u"frmRelaPreVisualiza"_s, u"frmRelatorio"_s, selecao}) {
        if (ui::Form *form = ui::Forms::instance().find(janela)) {
            form->Unload();
        }
    }
}

void TestRelaPecasOficina::theListsHoldWhatTheDatabaseSays()
{
    QCOMPARE(cadastro::list(papel::abre(modoRelaEstoqueGeral))->count(),
             conta(u"SELECT Codigo FROM Pecas WHERE ControlaEstoque = True"_s));
    cleanup();
    QCOMPARE(cadastro::list(papel::abre(modoRelaPecas))->count(), conta(u"SELECT Codigo FROM Pecas"_s));
    cleanup();
    QCOMPARE(cadastro::list(abre(modoRelaPecasVendidas))->count(),
             conta(u"SELECT DISTINCT OSPecas.CodPeca FROM OSPecas, OrdemServico WHERE OSPecas.CodOS = "
                   "OrdemServico.Codigo AND PSA = 'P' AND DataIN BETWEEN "_s +
                   doisAnos) +
                 1);
}

void TestRelaPecasOficina::whatIsToBeBoughtIsBelowItsMinimum()
{
    QStringList abaixo;
    auto peca = DBDados->OpenRecordset(u"SELECT Codigo, EstoqueMinimo FROM Pecas WHERE ControlaEstoque = True"_s);
    for (; !peca.Eof(); peca.MoveNext()) {
        const QString saldo = LocalizaCampo(
            u"estoque"_s, u"Estoque"_s, u"CodPeca = "_s + runtime::CStr(peca.value(0)) + u" ORDER BY Codigo DESC"_s);
        if (!saldo.isEmpty() && runtime::CSng(saldo) < runtime::CSng(peca.value(1))) {
            abaixo << runtime::Format(peca.value(0), u"0000");
        }
    }
    QVERIFY(!abaixo.isEmpty());
    QCOMPARE(cadastro::columnOf(papel::abre(modoRelaCompras), 0), abaixo);
}

void TestRelaPecasOficina::theTotalIsThatOfTheLines()
{
    const auto linhas = rowsOf(abre(modoRelaPecasVendidas));
    QCOMPARE(linhas.back().at(1), u"TOTAL:"_s);
    const double total = runtime::CDbl(linhas.back().at(4));
    const double soma = runtime::CDbl(programa_->value(
        u"SELECT Sum(ValorUnit * Quantidade) FROM OSPecas, OrdemServico WHERE OSPecas.CodOS = OrdemServico.Codigo AND "
        "PSA = 'P' AND DataIN BETWEEN "_s +
        doisAnos));
    QVERIFY2(total > 1000 && std::abs(total - soma) < total * 1e-5, qPrintable(u"%1 %2"_s.arg(total).arg(soma)));
}

void TestRelaPecasOficina::thePaperShowsTheList_data()
{
    QTest::addColumn<std::size_t>("caso");
    for (std::size_t caso = 0; caso < casos.size(); ++caso) {
        QTest::newRow(casos[caso].nome) << caso;
    }
}

/// Every sheet, from the first over those in the middle to the last with the total.
void TestRelaPecasOficina::thePaperShowsTheList()
{
    QFETCH(std::size_t, caso);
    const Caso &este = casos[caso];
    ui::Form *form = abre(este.modo);
    support::Boxes boxes;
    if (este.resposta) {
        boxes.question(u"Imprimir Valor Custo"_s, *este.resposta);
    }
    click(form, u"btnPrint"_s);
    const auto linhas = rowsOf(form);
    const auto folhas = papel::impresso();
    constexpr int porFolha = 50;
    const int total = static_cast<int>(linhas.size());
    QVERIFY2(total > 2 * porFolha, qPrintable(QString::number(total)));
    QCOMPARE(static_cast<int>(folhas.size()), (total + porFolha - 1) / porFolha);
    for (int folha = 0; folha < static_cast<int>(folhas.size()); ++folha) {
        const int ultima = std::min((folha + 1) * porFolha, total);
        const QStringList impressa = folhas[std::size_t(folha)];
        QCOMPARE(impressa.at(3), u"Nº de Registros..: %1"_s.arg(total));
        QCOMPARE(impressa.at(4), u"Exibindo.....: de: %1 à %2"_s.arg(folha * porFolha + 1).arg(ultima));
        QStringList esperada;
        for (int linha = folha * porFolha; linha < ultima; ++linha) {
            esperada << noPapel(linhas[std::size_t(linha)], este);
        }
        QCOMPARE(impressa.mid(6), esperada);
    }
}

void TestRelaPecasOficina::thePreviewShowsThePaper_data()
{
    thePaperShowsTheList_data();
}

void TestRelaPecasOficina::thePreviewShowsThePaper()
{
    QFETCH(std::size_t, caso);
    const Caso &este = casos[caso];
    ui::Form *form = abre(este.modo);
    support::Boxes boxes;
    for (const auto *botao : {u"btnPrint", u"btnPrevisualizar"}) {
        if (este.resposta) {
            boxes.question(u"Imprimir Valor Custo"_s, *este.resposta);
        }
        click(form, QStringView(botao).toString());
    }
    QCOMPARE(papel::previsto(), papel::impresso());
}

TARVELO_TEST_MAIN(TestRelaPecasOficina)
#include "tst_relapecas_oficina.moc"
