#include "core/modos.h"
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
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

/// A report as the user asks for it: the menu item, and the window that asks for its period where there is one.
struct Pedido {
    QString item;
    QString selecao;
    QString nome;
    bool perguntaCusto = false; ///< asks whether the cost is printed, ahead of every print
    bool doLivroCaixa = false;  ///< its preview prints through the cash book
};

const QList<Pedido> pedidos = {
    {u"itmRelaNotaEntradaUmFornecedor"_s, u"frmRelaSelecaoNotasEntradas"_s, u"notas"_s},
    {u"itmRelaEstoqueGeralPecas"_s, {}, u"estoque"_s},
    {u"itmRelaListaCompras"_s, {}, u"compras"_s},
    {u"itmRelaListaPecas"_s, {}, u"pecas"_s, true},
    {u"itmRelaPecaServVendidos"_s, u"frmRelaSelecaoPecas"_s, u"vendidos"_s},
    {u"itmRelaOrdensServicos"_s, u"frmRelaSelecaoOS"_s, u"ordens"_s},
    {u"itmRelaContasPagarReceber"_s, u"frmRelaSelecaoContasPR"_s, u"contas"_s},
    {u"itmRelaListaDevedores"_s, {}, u"devedores"_s},
    {u"itmRelaCheques"_s, u"frmRelaSelecaoCheques"_s, u"cheques"_s},
    {u"itmRelaVisitas"_s, {}, u"visitas"_s, false, true},
    {u"itmRelaVeiculos"_s, {}, u"veiculos"_s},
    {u"itmRelaNiver"_s, {}, u"aniversarios"_s},
};

std::vector<QStringList> documento()
{
    std::vector<QStringList> folhas;
    for (const printer::Page &folha : printer::printer().lastDocument()) {
        folhas.push_back(folha.lines());
    }
    return folhas;
}

/// The supplier with the most notes.
QString fornecedor()
{
    return runtime::CStr(
        value(u"SELECT CodForn, Count(Codigo) FROM NotasEntradas GROUP BY CodForn ORDER BY Count(Codigo) DESC"_s));
}

/// Fills the selection window, and has the report shown.
void seleciona(const Pedido &pedido)
{
    auto *selecao = form(pedido.selecao);
    if (pedido.selecao == u"frmRelaSelecaoNotasEntradas"_s) {
        type(selecao, u"txtCodForn"_s, fornecedor());
    }
    type(selecao, u"txtDataInicio"_s, runtime::Format(runtime::DateAdd(u"d", -60, runtime::Today()), u"ddmmyyyy"));
    picture(pedido.selecao);
    click(selecao, u"btnPreenche"_s);
}

class Relatorios : public QObject
{
    Q_OBJECT

public:
    explicit Relatorios(QString folder) : folder_(std::move(folder)) {}

private slots:
    void entra();
    void cadaUm_data();
    void cadaUm();
    void pagamentoDeUmaOrdem();
    void sai();

private:
    static void imprime(ui::Form *relatorio, const Pedido &pedido);

    QString folder_;
};

void Relatorios::entra()
{
    useFolder(folder_);
    start(operadorDaOficina());
    // The workshop buys in time: with higher minimums there is something left to be bought.
    core::DBDados->Execute(
        u"UPDATE Pecas SET EstoqueMinimo = 2 * EstoqueMinimo WHERE ControlaEstoque = True AND Codigo MOD 3 = 0"_s);
}

void Relatorios::cadaUm_data()
{
    QTest::addColumn<int>("numero");
    for (int numero = 0; numero < pedidos.size(); ++numero) {
        QTest::newRow(qPrintable(pedidos.at(numero).nome)) << numero;
    }
}

/// On paper, in the preview, and on paper from there: the same text each time.
void Relatorios::imprime(ui::Form *relatorio, const Pedido &pedido)
{
    Boxes boxes;
    const auto responde = [&] {
        if (pedido.perguntaCusto) {
            boxes.question(u"Imprimir Valor Custo"_s, true);
        }
    };
    responde();
    click(relatorio, u"btnPrint"_s);
    boxes.finish();
    const auto impresso = documento();
    responde();
    click(relatorio, u"btnPrevisualizar"_s);
    boxes.finish();
    QTRY_VERIFY(cadastro::isOpen(u"frmRelaPreVisualiza"_s));
    auto *previa = form(u"frmRelaPreVisualiza"_s);
    QCOMPARE(support::text(previa, u"lblPaginas"_s), QString::number(impresso.size()));
    picture(u"frmRelaPreVisualiza_"_s + pedido.nome);
    if (!pedido.doLivroCaixa) {
        responde();
        click(previa, u"btnPrint"_s);
        boxes.finish();
        QCOMPARE(documento(), impresso);
    }
    close(previa);
}

void Relatorios::cadaUm()
{
    QFETCH(int, numero);
    const Pedido &pedido = pedidos.at(numero);
    choose(pedido.item);
    if (!pedido.selecao.isEmpty()) {
        seleciona(pedido);
    }
    auto *relatorio = form(u"frmRelatorio"_s);
    const int linhas = cadastro::list(relatorio)->count();
    QVERIFY(linhas > 0);
    picture(u"frmRelatorio_"_s + pedido.nome);
    imprime(relatorio, pedido);
    const auto folhas = printer::printer().lastDocument().size();
    const QString titulo = ui::captionTail(relatorio->windowTitle());
    close(relatorio);
    if (!pedido.selecao.isEmpty()) {
        close(form(pedido.selecao));
    }
    const QString papel = folhas == 1 ? u"1 folha"_s : u"%1 folhas"_s.arg(folhas);
    done(u"%1: %2 linhas em %3; impresso, pré-visualizado e impresso da pré-visualização"_s.arg(titulo).arg(linhas).arg(
        papel));
}

/// From the order to what it left to be received.
void Relatorios::pagamentoDeUmaOrdem()
{
    const auto ordem = value(u"SELECT Codigo FROM OrdemServico WHERE FormaPagto = 'PARCELADO CARNÊ'"_s);
    core::ModoChamada = core::modoUmaOS;
    core::CodigoConsulta = runtime::CLng(ordem);
    auto *consulta = ui::Forms::instance().Show(u"frmOSConsulta"_s);
    click(consulta, u"btnPagtoInfo"_s);
    auto *relatorio = form(u"frmRelatorio"_s);
    QVERIFY(cadastro::columnOf(relatorio, 1).front().startsWith(u"CARNÊ Nº "_s));
    picture(u"frmRelatorio_pagamento"_s);
    close(relatorio);
    close(consulta);
    done(u"pagamento de uma ordem em carnê, parcela por parcela"_s);
}

void Relatorios::sai()
{
    stop();
}

} // namespace

Assunto relatorios(const QString &folder)
{
    return std::make_unique<Relatorios>(folder);
}

} // namespace demonstracao

#include "relatorios.moc"
