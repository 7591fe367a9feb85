#include "stock/frmMoviEntradaPecaConsultaFornecedor.h"

#include "ui_frmMoviEntradaPecaConsultaFornecedor.h"

#include "core/andamento.h"
#include "core/financas.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/lista.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/pagina.h"
#include "core/periodo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"
#include "stock/consultanotas.h"
#include "stock/notasentrada.h"

#include <QComboBox>

#include <array>

namespace stock
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr int colunaPago = 0;
constexpr int colunaCodigo = 1;
constexpr int colunaData = 2;
constexpr int colunaValor = 3;
constexpr int colunaDataPagto = 4;
constexpr int colunaObservacoes = 5;

const QString sim = u"Sim"_s;
const QString nao = u"Não"_s;
const QString total = u"Total: "_s;

constexpr std::array colunas{
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1500, u"Data", comoData},
    ColunaLista{u"Valor", 1500, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Data Pagto", 1500, u"DataPagto", comoData},
    ColunaLista{u"Observações", 5000, u"Observacoes", comoEsta},
};
constexpr std::array somas{Soma{u"Valor"}, Soma{u"Valor", EstaPago}, Soma{u"Valor", NaoEstaPago}};
constexpr Lista notas{.colunas = colunas, .somas = somas};

/// By the entry of `cboPago`: paid, unpaid, all.
constexpr std::array<QStringView, 3> situacoes{u" AND Pago = True", u" AND Pago = False", u""};

QString consultaDe(const EscolhaDeNotas &escolha)
{
    return u"SELECT * FROM NotasEntradas WHERE CodForn = "_s + escolha.codForn + u" AND Data BETWEEN "_s +
           escolha.periodo + situacoes.at(static_cast<std::size_t>(escolha.pago)) + u" ORDER BY Codigo"_s;
}

/// What stands in the boxes of the selection window, which stays open behind this one.
EscolhaDeNotas escolhaDaSelecao()
{
    const auto *selecao = ui::Forms::instance().find(u"frmRelaSelecaoNotasEntradas"_s);
    if (selecao == nullptr) {
        return {};
    }
    const auto texto = [selecao](const QString &controle) {
        return ui::textOf(selecao->findChild<QWidget *>(controle));
    };
    const auto codigo = CodigoDoTexto(texto(u"txtCodForn"_s));
    return {.codForn = codigo ? QString::number(*codigo) : QString(),
            .fornecedor = texto(u"lblFornecedor"_s),
            .dataInicio = texto(u"txtDataInicio"_s),
            .dataFim = texto(u"txtDataFim"_s),
            .periodo = PeriodoSQL(*selecao),
            .situacao = texto(u"cboPago"_s),
            .pago = selecao->findChild<QComboBox *>(u"cboPago"_s)->currentIndex()};
}

constexpr std::array camposImpressos{
    CampoDaLista{colunaCodigo}, CampoDaLista{colunaData},      CampoDaLista{colunaValor, Lado::Direita},
    CampoDaLista{colunaPago},   CampoDaLista{colunaDataPagto}, CampoDaLista{colunaObservacoes},
};
constexpr std::array linhasImpressas{
    LinhaImpressa{u"CÓDIGO - DATA       - VALOR      - PAGO - DATA PAGTO - OBSERVAÇÕES                              ",
                  camposImpressos}};
constexpr Pagina notasImpressas{
    .titulo = u"NOTAS DE ENTRADA DE FORNECEDOR", .linhas = linhasImpressas, .rotuloData = u"Data.......: "};
constexpr int larguraDoTotal = 13; ///< to the end of the values above

} // namespace

frmMoviEntradaPecaConsultaFornecedor::frmMoviEntradaPecaConsultaFornecedor()
    : Form(u"frmMoviEntradaPecaConsultaFornecedor"_s), ui_(std::make_unique<Ui::frmMoviEntradaPecaConsultaFornecedor>())
{
    ui_->setupUi(this);
    onClick(ui_->btnPrint, &frmMoviEntradaPecaConsultaFornecedor::btnPrint_Click);
    onClick(ui_->btnPreVisualizar, &frmMoviEntradaPecaConsultaFornecedor::btnPreVisualizar_Click);
    onClick(ui_->btnVoltar, &frmMoviEntradaPecaConsultaFornecedor::btnVoltar_Click);
    onChange(ui_->lblPrint, &frmMoviEntradaPecaConsultaFornecedor::lblPrint_Change);
    onItemClick(ui_->Lista, &frmMoviEntradaPecaConsultaFornecedor::Lista_Click);
    onItemCheck(ui_->Lista, &frmMoviEntradaPecaConsultaFornecedor::Lista_Check);
}

frmMoviEntradaPecaConsultaFornecedor::~frmMoviEntradaPecaConsultaFornecedor() = default;

void frmMoviEntradaPecaConsultaFornecedor::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Consulta Notas de Entrada de Fornecedor]"_s));
    ui_->Lista->setCheckBoxes(true);
    MontaLista(*ui_->Lista, notas);
    MontaLinhasDaNota(*ui_->lstPecas);
    escolha_ = escolhaDaSelecao();
    if (!escolha_.codForn.isEmpty()) {
        preenche();
    }
    ui_->Lista->setFocus();
}

void frmMoviEntradaPecaConsultaFornecedor::preenche()
{
    ui_->lstPecas->clear();
    const Somas valores = EncheLista(*ui_->Lista, DBDados->OpenRecordset(consultaDe(escolha_)), notas);
    const std::array rotulos{ui_->lblTotal, ui_->lblPagas, ui_->lblNaoPagas};
    for (std::size_t i = 0; i < rotulos.size(); ++i) {
        rotulos[i]->setText(runtime::Format(valores[i], mascaraValor));
    }
    if (ui_->Lista->count() == 0) {
        ui::MsgBox(u"Nenhum Registro Localizado com sua pesquisa"_s, ui::Icon::Exclamation, NomeEmpresa);
        return;
    }
    for (const int linha : ui_->Lista->rowsWhere(colunaPago, [](const QString &texto) { return texto == sim; })) {
        ui_->Lista->item(linha).setChecked(true);
    }
    ui_->Lista->addItem({}, {QString(), total, ui_->lblTotal->text()});
}

void frmMoviEntradaPecaConsultaFornecedor::Lista_Click(int linha)
{
    MostraLinhasDaNota(*ui_->lstPecas, ui_->Lista->item(linha).subItem(colunaCodigo));
}

// --- the check boxes

void frmMoviEntradaPecaConsultaFornecedor::Lista_Check(int linha)
{
    const ui::ListItem item = ui_->Lista->item(linha);
    if (const auto codigo = CodigoDoTexto(item.subItem(colunaCodigo))) {
        marca(linha, *codigo);
    } else if (item.subItem(colunaData) == total) {
        marcaTodas(linha);
    }
}

void frmMoviEntradaPecaConsultaFornecedor::marca(int linha, qint32 codigo)
{
    ui::ListItem nota = ui_->Lista->item(linha);
    const bool paga = nota.checked();
    if (!(paga ? MarcaPaga(codigo, PerguntaDiaDoPagamento()) : MarcaNaoPaga(codigo))) {
        preenche();
        return;
    }
    mostraMarca(nota, paga);
    nota.setSubItem(colunaDataPagto, paga ? DiaDoPagamento(codigo) : u" "_s);
}

/// The days of payment stay as they are, in the table and on the screen.
void frmMoviEntradaPecaConsultaFornecedor::marcaTodas(int linha)
{
    ui::ListItem deTodas = ui_->Lista->item(linha);
    const bool pagas = deTodas.checked();
    const QString comoMarca = pagas ? u"Pagos"_s : u"Não Pagos"_s;
    if (!ui::Confirm(u"Marcar todos os Registros como "_s + comoMarca, NomeEmpresa)) {
        deTodas.setChecked(!pagas);
        return;
    }
    Andamento andamento(u"Marcando notas"_s, [this] { return ui_->Lista->count(); });
    for (int outra = 0; outra < ui_->Lista->count(); ++outra) {
        andamento.avanca();
        ui::ListItem nota = ui_->Lista->item(outra);
        const auto codigo = CodigoDoTexto(nota.subItem(colunaCodigo));
        if (codigo && MarcaSemData(*codigo, pagas)) {
            nota.setChecked(pagas);
            mostraMarca(nota, pagas);
        }
    }
}

/// The value goes over to the other sum, where the note has one and did not count there already.
void frmMoviEntradaPecaConsultaFornecedor::mostraMarca(ui::ListItem nota, bool paga)
{
    const QString &marca = paga ? sim : nao;
    if (nota.text() == marca) {
        return;
    }
    nota.setText(marca);
    const QString valor = nota.subItem(colunaValor);
    if (!runtime::IsNumeric(valor)) {
        return;
    }
    ui::Label *para = paga ? ui_->lblPagas : ui_->lblNaoPagas;
    ui::Label *de = paga ? ui_->lblNaoPagas : ui_->lblPagas;
    para->setText(SomaTexto(para->text(), valor));
    de->setText(SomaTexto(de->text(), runtime::Format(-runtime::CDbl(valor), mascaraValor)));
}

// --- paper

void frmMoviEntradaPecaConsultaFornecedor::btnPrint_Click()
{
    imprime(Acao::Imprime);
}

/// The preview knows by this mode whom to ask for paper, whatever other windows have been opened meanwhile.
void frmMoviEntradaPecaConsultaFornecedor::btnPreVisualizar_Click()
{
    ModoChamada = modoConsultaNotasFornecedor;
    imprime(Acao::PreVisualiza);
}

void frmMoviEntradaPecaConsultaFornecedor::btnVoltar_Click()
{
    Unload();
}

/// The preview asks for paper.
void frmMoviEntradaPecaConsultaFornecedor::lblPrint_Change()
{
    btnPrint_Click();
}

void frmMoviEntradaPecaConsultaFornecedor::imprime(Acao acao)
{
    const QString periodo = u"de "_s + escolha_.dataInicio + u" até "_s + escolha_.dataFim;
    const auto valor = [](const ui::Label *rotulo) { return AlinhaDireita(rotulo->text(), larguraDoTotal); };
    ImprimeLista(acao, *ui_->Lista, notasImpressas,
                 {.linhas = {{{u"Fornecedor.: "_s, escolha_.fornecedor}},
                             {{u"Período....: "_s, periodo}},
                             {{u"Situação...: "_s, escolha_.situacao}}},
                  .totais = {{{u"TOTAL NOTAS.......:"_s, valor(ui_->lblTotal)}},
                             {{u"TOTAL NOTAS PAGAS.:"_s, valor(ui_->lblPagas)}},
                             {{u"T. NOTAS NÃO PAGAS:"_s, valor(ui_->lblNaoPagas)}}}});
}

} // namespace stock
