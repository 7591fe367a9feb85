#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/programa.h"

#include <QTest>

using namespace Qt::StringLiterals;
using runtime::Value;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

const QString part = u"FILTRO DE ÓLEO"_s;

QString today()
{
    return runtime::Format(runtime::Today(), u"dd/mm/yyyy");
}

/// The newest balance of the part in the ledger of stock.
float stock()
{
    return runtime::CSng(
        value(u"SELECT Estoque.Estoque FROM Estoque, Pecas WHERE Pecas.Codigo = Estoque.CodPeca AND Pecas.Nome = '%1' "
              "ORDER BY Estoque.Codigo DESC"_s.arg(part)));
}

QStringList printedLines()
{
    return printer::printer().lastDocument().front().lines();
}

/// On paper, in the preview, and on paper from there.
void printAndPreview(ui::Form *window, const QString &preview, const QString &name)
{
    click(window, u"btnPrint"_s);
    const QStringList printed = printedLines();
    click(window, preview);
    QTRY_VERIFY(cadastro::isOpen(u"frmRelaPreVisualiza"_s));
    picture(u"frmRelaPreVisualiza_"_s + name);
    click(form(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QCOMPARE(printedLines(), printed);
    close(form(u"frmRelaPreVisualiza"_s));
}

class Entradas : public QObject
{
    Q_OBJECT

private slots:
    void notaRecebida();
    void notaPaga();
    void notasDoFornecedor();
    void balanco();
    void livroDeOrigem();

private:
    static void addSupplier(Boxes &boxes);
    static void addLines();
    static void enterOrigin(ui::Form *window, Boxes &boxes);
};

/// The supplier is new: he is added on the way, and his code comes back.
void Entradas::addSupplier(Boxes &boxes)
{
    auto *window = form(u"frmMoviEntradaPeca"_s);
    support::key(window, u"txtCodFornecedor"_s, Qt::Key_F2);
    auto *suppliers = form(u"frmCadaFornecedor"_s);
    cadastro::fill(suppliers, {{u"txtNome"_s, u"distribuidora tupi"_s}, {u"txtContato"_s, u"vera"_s}});
    include(suppliers, boxes);
    QTRY_VERIFY(!cadastro::isOpen(u"frmCadaFornecedor"_s));
    support::key(window, u"txtCodFornecedor"_s, Qt::Key_Return);
    QTRY_COMPARE(support::text(window, u"lblNome"_s), u"DISTRIBUIDORA TUPI"_s);
}

/// Ten filters at a new price, and something that is in no register.
void Entradas::addLines()
{
    auto *window = form(u"frmMoviEntradaPeca"_s);
    support::key(window, u"txtCodPeca"_s, Qt::Key_F1);
    pick(u"frmCadaPecas"_s, part.toLower(), By::DoubleClick);
    support::key(window, u"txtCodPeca"_s, Qt::Key_Return);
    QTRY_COMPARE(support::text(window, u"txtDescricao"_s), part);
    cadastro::fill(window, {{u"txtQuantidade"_s, u"10"_s}, {u"txtValor"_s, u"19,90"_s}});
    click(window, u"btnItemAdd"_s);
    cadastro::fill(window, {{u"txtQuantidade"_s, u"1"_s}, {u"txtDescricao"_s, u"frete"_s}, {u"txtValor"_s, u"25"_s}});
    click(window, u"btnItemAdd"_s);
    QCOMPARE(support::text(window, u"lblTotal"_s), u"224,00"_s);
}

void Entradas::notaRecebida()
{
    Boxes boxes;
    auto *window = choose(u"itmMoviEntradaPecas"_s, u"frmMoviEntradaPeca"_s);
    refused(window, boxes, u"Código do Fornecedor Inválido"_s, {});
    addSupplier(boxes);
    refused(window, boxes, u"Lista de Peças Vazia"_s, {{u"txtObs"_s, u"nota fiscal 4821"_s}});
    const float before = stock();
    addLines();
    boxes.question(u"Confirma Inclusão"_s, true).exclamation(u"Nota Nº 0001 incluída com sucesso"_s);
    click(window, u"btnIncluir"_s);
    boxes.finish();
    QCOMPARE(stock(), before + 10);
    QCOMPARE(value(u"SELECT ValorCusto FROM Pecas WHERE Nome = '%1'"_s.arg(part)), Value(19.9F));
    picture(u"frmMoviEntradaPeca_recebida"_s);
    close(window);
    done(u"nota de fornecedor recebida: estoque e custo da peça atualizados"_s);
}

void Entradas::notaPaga()
{
    Boxes boxes;
    auto *window = choose(u"itmMoviEntradaPecasConsultar"_s, u"frmMoviEntradaPecaConsulta"_s);
    cadastro::clickRow(window, 0);
    QCOMPARE(cadastro::list(window, u"lstPecas"_s)->count(), 2);
    boxes.inputKeep(u"Digite a Data do Pagamento"_s, today());
    support::key(window, u"Lista"_s, Qt::Key_P);
    boxes.finish();
    QCOMPARE(cadastro::columnOf(window, 5), QStringList{today()});
    picture(u"frmMoviEntradaPecaConsulta_paga"_s);
    close(window);
    done(u"nota marcada como paga na consulta"_s);
}

void Entradas::notasDoFornecedor()
{
    Boxes boxes;
    auto *selection = choose(u"itmMoviConsEntrPecaFornecedor"_s, u"frmRelaSelecaoNotasEntradas"_s);
    support::key(selection, u"txtCodForn"_s, Qt::Key_F1);
    pick(u"frmCadaFornecedor"_s, u"tupi"_s, By::Enter);
    support::key(selection, u"txtCodForn"_s, Qt::Key_Tab);
    QTRY_COMPARE(support::text(selection, u"lblFornecedor"_s), u"DISTRIBUIDORA TUPI"_s);
    click(selection, u"btnPreenche"_s);
    auto *window = form(u"frmMoviEntradaPecaConsultaFornecedor"_s);
    QCOMPARE(support::text(window, u"lblPagas"_s), u"224,00"_s);
    picture(u"frmMoviEntradaPecaConsultaFornecedor"_s);
    printAndPreview(window, u"btnPreVisualizar"_s, u"notas_fornecedor"_s);
    QVERIFY(printedLines().contains(u"Fornecedor.: DISTRIBUIDORA TUPI"_s));
    close(window);
    close(selection);
    done(u"notas do fornecedor consultadas, impressas e pré-visualizadas"_s);
}

void Entradas::balanco()
{
    auto *window = choose(u"itmRelaBalanco"_s, u"frmBalanco"_s);
    click(window, u"btnPreenche"_s);
    QCOMPARE(support::text(window, u"lblLinha2_1"_s), u"224,00"_s);
    click(window, u"btnCalcular"_s);
    const QString total = support::text(window, u"lblTotal_1"_s);
    picture(u"frmBalanco"_s);
    click(window, u"chk2"_s);
    QVERIFY(support::text(window, u"lblTotal_1"_s) != total);
    close(window);
    done(u"balanço geral: total de "_s + total);
}

void Entradas::enterOrigin(ui::Form *window, Boxes &boxes)
{
    refused(window, boxes, u"Data Inválida"_s, {{u"txtData"_s, today()}});
    refused(window, boxes, u"Origem Inválida"_s, {{u"txtOrigem"_s, u"balcão"_s}});
    cadastro::fill(window, {{u"txtDinheiro"_s, u"320,50"_s}, {u"txtAPrazo"_s, u"180"_s}});
    click(window, u"btnIncluir"_s);
    QCOMPARE(cadastro::columnOf(window, 3), (QStringList{u"320,50"_s, u"320,50"_s}));
}

/// The command is there for the installations that asked for the book.
void Entradas::livroDeOrigem()
{
    Boxes boxes;
    core::GravaINI(u"Config"_s, u"Personalizacao"_s, u"1-1"_s, true);
    stop();
    start(primeiroOperador());
    auto *window = choose(u"itmMoviOrigem"_s, u"frmMoviLivroOrigem"_s);
    enterOrigin(window, boxes);
    picture(u"frmMoviLivroOrigem"_s);
    printAndPreview(window, u"btnPrevisualizar"_s, u"origens"_s);
    QVERIFY(printedLines().contains(u"Período..........: de %1 até %2"_s.arg(support::text(window, u"txtDataInicio"_s),
                                                                             support::text(window, u"txtDataFim"_s))));
    close(window);
    done(u"livro de origem, com a personalização 1-1: registro incluído, impresso e pré-visualizado"_s);
}

} // namespace

Assunto entradas()
{
    return std::make_unique<Entradas>();
}

} // namespace demonstracao

#include "entradas.moc"
