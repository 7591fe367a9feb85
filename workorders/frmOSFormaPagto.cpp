#include "workorders/frmOSFormaPagto.h"

#include "ui_frmOSFormaPagto.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/caixadata.h"
#include "core/caixalista.h"
#include "core/config.h"
#include "core/devolucao.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/limites.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "documents/documento.h"
#include "documents/parcelas.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"
#include "workorders/fechamento.h"
#include "workorders/frmOSConsulta.h"
#include "workorders/ordemimpressa.h"
#include "workorders/plano.h"

#include <QItemSelectionModel>
#include <QShowEvent>

#include <algorithm>
#include <compare>

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

// The payment forms by the index of their tab.
enum Forma { aVista = 0, chequePre = 1, carne = 2, cheques = 3, fiado = 4, personalizado = 5 };

constexpr int maximoParcelas = 99;
constexpr qsizetype maximoNumeroCheque = 20;
constexpr int maximoCampoCheque = 50; ///< what the bank, account and number of a cheque hold

std::unique_ptr<Ui::frmOSFormaPagto> controlesEm(QWidget *janela)
{
    auto controles = std::make_unique<Ui::frmOSFormaPagto>();
    controles->setupUi(janela);
    return controles;
}

/// The element of a control array; an array without that index has an empty text.
template<class T>
QString textoDe(const std::map<int, T *> &controles, int indice)
{
    const auto achado = controles.find(indice);
    return achado == controles.end() ? QString() : ui::textOf(achado->second);
}

/// What is not all digits is no customer's code; in the statement it would be a broken one.
QString consultaDoCliente(const QString &codigo)
{
    const bool soDigitos = std::all_of(codigo.begin(), codigo.end(), [](QChar c) { return c.isDigit(); });
    return u"SELECT Nome FROM Clientes WHERE Codigo = "_s + (soDigitos ? codigo : u"0"_s);
}

/// Yesterday still passes: a cheque of the evening before is taken in the morning.
bool venceu(const QString &data)
{
    return DateDiff(u"d", CDate(data), Today()) > 1;
}

/// The query shows when the order was closed, as it is printed from there.
constexpr std::array aConsulta{Devolucao{modoNormal, u"frmOSConsulta", u"lblDataOut"}};

/// What a cheque is written from. The lists of banks come with longer entries than it holds.
constexpr std::array caixas{
    CaixaDeTexto{u"txtBanco_1", u"Cheques", u"Banco"},    CaixaDeTexto{u"txtBanco_3", u"Cheques", u"Banco"},
    CaixaDeTexto{u"txtBanco_5", u"Cheques", u"Banco"},    CaixaDeTexto{u"txtConta_1", u"Cheques", u"Conta"},
    CaixaDeTexto{u"txtConta_3", u"Cheques", u"Conta"},    CaixaDeTexto{u"txtConta_5", u"Cheques", u"Conta"},
    CaixaDeTexto{u"txtNumCheque", u"Cheques", u"Numero"},
};

/// An answer of the cheque boxes, as long as the column of the table.
QString pedeDado(const QString &pergunta, const QString &parcela, const QString &sugestao)
{
    return Left(ui::InputBox(pergunta + parcela, u"Cadastro do Cheque Pré"_s, sugestao), maximoCampoCheque);
}

} // namespace

frmOSFormaPagto::frmOSFormaPagto()
    : ui::Form(u"frmOSFormaPagto"_s), ui_(controlesEm(this)),
      plano_({ui_->txtParcela_5, ui_->txtData_5, ui_->txtValor_5, ui_->optDocumento_0, ui_->optDocumento_1,
              ui_->Lista_5, ui_->lblSaldo_5, ui_->lblSituacao_5})
{
    const auto listaDeBancos = [this](QComboBox *combo, QPushButton *acrescenta, QPushButton *remove) {
        return new CaixaDeLista(*this, combo, ListaCombo::Bancos, acrescenta, remove);
    };
    btnFechar_ = {{aVista, ui_->btnFechar_0},  {chequePre, ui_->btnFechar_1}, {carne, ui_->btnFechar_2},
                  {cheques, ui_->btnFechar_3}, {fiado, ui_->btnFechar_4},     {personalizado, ui_->btnFechar_5}};
    txtValor_ = {{aVista, ui_->txtValor_0}, {chequePre, ui_->txtValor_1}, {personalizado, ui_->txtValor_5}};
    txtData_ = {{chequePre, ui_->txtData_1}, {fiado, ui_->txtData_4}, {personalizado, ui_->txtData_5}};
    txtConta_ = {{chequePre, ui_->txtConta_1}, {cheques, ui_->txtConta_3}, {personalizado, ui_->txtConta_5}};
    txtBanco_ = {{chequePre, ui_->txtBanco_1}, {cheques, ui_->txtBanco_3}, {personalizado, ui_->txtBanco_5}};
    bancos_ = {{chequePre, listaDeBancos(ui_->txtBanco_1, ui_->btnBancoAdd_1, ui_->btnBancoRemove_1)},
               {cheques, listaDeBancos(ui_->txtBanco_3, ui_->btnBancoAdd_3, ui_->btnBancoRemove_3)},
               {personalizado, listaDeBancos(ui_->txtBanco_5, ui_->btnBancoAdd_5, ui_->btnBancoRemove_5)}};
    btnParcelasAdd_ = {{carne, ui_->btnParcelasAdd_2}, {cheques, ui_->btnParcelasAdd_3}};
    btnParcelasMenos_ = {{carne, ui_->btnParcelasMenos_2}, {cheques, ui_->btnParcelasMenos_3}};
    lblParcelas_ = {{carne, ui_->lblParcelas_2}, {cheques, ui_->lblParcelas_3}};
    Lista_ = {{carne, ui_->Lista_2}, {cheques, ui_->Lista_3}, {personalizado, ui_->Lista_5}};

    ui::keepVisible(ui_->lblTroco);
    setEscapeUnloads(true);
    ligaBotoes();
    ligaCampos();
    ligaPersonalizado();
}

frmOSFormaPagto::~frmOSFormaPagto() = default;

std::vector<Devolucoes> frmOSFormaPagto::devolucoes()
{
    return {{Ocasiao::Preenchimento, aConsulta}};
}

void frmOSFormaPagto::ligaBotoes()
{
    const auto liga = [this](const Array<QPushButton> &botoes, void (frmOSFormaPagto::*evento)(int)) {
        for (const auto &[indice, botao] : botoes) {
            onClick(botao, evento, indice);
        }
    };
    liga(btnFechar_, &frmOSFormaPagto::btnFechar_Click);
    liga(btnParcelasAdd_, &frmOSFormaPagto::btnParcelasAdd_Click);
    liga(btnParcelasMenos_, &frmOSFormaPagto::btnParcelasMenos_Click);
    onClick(ui_->btnItemAdd, &frmOSFormaPagto::btnItemAdd_Click);
    onClick(ui_->btnItemRemove, &frmOSFormaPagto::btnItemRemove_Click);
    onClick(ui_->btnPrint, &frmOSFormaPagto::btnPrint_Click);
    onClick(ui_->btnVoltar, &frmOSFormaPagto::btnVoltar_Click);
}

void frmOSFormaPagto::ligaCampos()
{
    onTab(ui_->tabPagto, &frmOSFormaPagto::tabPagto_Click);
    onChange(ui_->lblValor, &frmOSFormaPagto::lblValor_Change);
    onChange(ui_->lblTotal, &frmOSFormaPagto::lblTotal_Change);
    onLostFocus(ui_->txtDesconto, &frmOSFormaPagto::txtDesconto_LostFocus);
    filterKeys(ui_->txtDesconto, SoDecimais);
    for (const auto &[indice, campo] : txtValor_) {
        onLostFocus(campo, &frmOSFormaPagto::txtValor_LostFocus, indice);
        filterKeys(campo, SoDecimais);
    }
    for (const auto &[indice, campo] : txtData_) {
        LigaData(*this, campo, {.saida = SaidaDaData::Formata});
    }
    onChange(ui_->txtCodCliente, &frmOSFormaPagto::txtCodCliente_Change);
    ligaCliente();
}

void frmOSFormaPagto::ligaPersonalizado()
{
    filterKeys(ui_->txtParcela_5, SoDecimais);
    onGotFocus(ui_->txtParcela_5, &frmOSFormaPagto::txtParcela_GotFocus);
    onGotFocus(ui_->txtValor_5, &frmOSFormaPagto::txtValor_GotFocus, personalizado);
    onGotFocus(ui_->txtData_5, &frmOSFormaPagto::txtData_GotFocus, personalizado);
    onChange(ui_->lblSaldo_5, &frmOSFormaPagto::lblSaldo_Change);
    onSelection(ui_->Lista_5, &frmOSFormaPagto::habilitaRemocao);
    habilitaRemocao();
}

void frmOSFormaPagto::habilitaRemocao()
{
    ui::enableIf(ui_->Lista_5->selectedRow() >= 0, ui_->btnItemRemove, u"Escolha uma parcela na lista"_s,
                 ui_->txtParcela_5);
}

void frmOSFormaPagto::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Forma de Pagamento de O.S.]"_s));
    for (const auto &[indice, lista] : Lista_) {
        MontaColunasDoPlano(*lista, indice == personalizado);
    }
    LimitaAosCampos(*this, caixas);
    for (const auto &[indice, lista] : bancos_) {
        lista->carrega();
    }
    lblSaldo_Change();
    ui_->txtValor_0->setFocus();
}

/// The tab in front is entered with the window.
void frmOSFormaPagto::showEvent(QShowEvent *event)
{
    ui::Form::showEvent(event);
    if (!event->spontaneous()) {
        ui::Application::run([this] { tabPagto_Click(); });
    }
}

// --- tabs and values

void frmOSFormaPagto::tabPagto_Click()
{
    const int indice = ui_->tabPagto->currentIndex();
    switch (indice) {
    case aVista:
        ui_->txtValor_0->setText(ui_->lblValor->text());
        SelecionaTexto(ui_->txtValor_0);
        break;
    case chequePre:
        ui_->txtValor_1->setText(ui_->lblValor->text());
        bancos_.at(chequePre)->carrega();
        ui_->txtBanco_1->setFocus();
        break;
    case carne:
        recalculaPlano(carne);
        break;
    case cheques:
        recalculaPlano(cheques);
        bancos_.at(cheques)->carrega();
        break;
    case fiado:
        mostraCredito();
        ui_->txtData_4->setFocus();
        break;
    default:
        break;
    }
}

void frmOSFormaPagto::lblValor_Change()
{
    const int indice = ui_->tabPagto->currentIndex();
    if (indice == aVista || indice == chequePre) {
        txtValor_.at(indice)->setText(ui_->lblValor->text());
    } else if (indice == carne || indice == cheques) {
        recalculaPlano(indice);
    }
}

/// How the balance of the custom plan starts.
void frmOSFormaPagto::lblTotal_Change()
{
    ui_->lblSaldo_5->setText(ui_->lblTotal->text());
}

void frmOSFormaPagto::txtDesconto_LostFocus()
{
    const QString desconto = ui_->txtDesconto->text();
    const QString total = ui_->lblTotal->text();
    if (desconto.isEmpty()) {
        ui_->lblValor->setText(total);
        return;
    }
    if (!IsNumeric(desconto)) {
        return;
    }
    const float maximo = DescontoMaximo(total, Config(u"Desconto"_s));
    if (CSng(desconto) > maximo) {
        Recusa(u"Desconto máximo é de R$ "_s + Format(maximo, mascaraValor), ui_->txtDesconto);
        return;
    }
    ui_->lblValor->setText(Format(CSng(total) - CSng(desconto), mascaraValor));
    ui_->txtDesconto->setText(Format(desconto, mascaraValor));
}

void frmOSFormaPagto::txtValor_GotFocus(int indice)
{
    SelecionaTexto(txtValor_.at(indice));
}

void frmOSFormaPagto::txtValor_LostFocus(int indice)
{
    QLineEdit *valor = txtValor_.at(indice);
    if (IsNumeric(valor->text())) {
        MascaraTexto(valor, TipoMascara::Valor);
        ui_->lblTroco->setText(Format(CSng(valor->text()) - CSng(ui_->lblValor->text()), mascaraValor));
    }
}

void frmOSFormaPagto::txtParcela_GotFocus()
{
    SelecionaTexto(ui_->txtParcela_5);
}

void frmOSFormaPagto::txtData_GotFocus(int indice)
{
    SelecionaTexto(txtData_.at(indice));
}

// --- instalments

void frmOSFormaPagto::recalculaPlano(int indice)
{
    const int parcelas = CInt(lblParcelas_.at(indice)->text());
    QPushButton *mais = btnParcelasAdd_.at(indice);
    QPushButton *menos = btnParcelasMenos_.at(indice);
    ui::enableIf(parcelas < maximoParcelas, mais, u"São no máximo 99 parcelas"_s, menos);
    ui::enableIf(parcelas > 1, menos, u"É no mínimo uma parcela"_s, mais);
    const bool semJurosEmUma = Val(ConfigOrcamento(u"P3"_s)) != 0;
    ui::ListView &lista = *Lista_.at(indice);
    lista.clear();
    for (const ParcelaOS &parcela :
         PlanoParcelas(ui_->lblValor->text(), parcelas, Config(u"Juros"_s), semJurosEmUma, Today())) {
        AcrescentaParcela(lista, parcela);
    }
}

void frmOSFormaPagto::btnParcelasAdd_Click(int indice)
{
    mudaParcelas(indice, 1);
}

void frmOSFormaPagto::btnParcelasMenos_Click(int indice)
{
    mudaParcelas(indice, -1);
}

void frmOSFormaPagto::mudaParcelas(int indice, int passo)
{
    const int parcelas = CInt(lblParcelas_.at(indice)->text()) + passo;
    if (parcelas < 1 || parcelas > maximoParcelas) {
        return;
    }
    lblParcelas_.at(indice)->setText(Format(parcelas, u"00"));
    recalculaPlano(indice);
}

// --- store credit

void frmOSFormaPagto::mostraCredito()
{
    const bool outraConta = !ui_->lblNomeCliente->text().isEmpty();
    const QString codigo = outraConta ? ui_->txtCodCliente->text() : ui::tagOf(ui_->lblNome);
    if (!codigo.isEmpty()) {
        ui_->lblLC->setText(CreditoDisponivel(codigo));
    }
}

/// An emptied code takes the other account back: its name must not stay, or the debt would go to nobody.
void frmOSFormaPagto::txtCodCliente_Change()
{
    if (ui_->txtCodCliente->text().isEmpty()) {
        ui_->lblNomeCliente->setText({});
        mostraCredito();
    }
}

void frmOSFormaPagto::ligaCliente()
{
    new CaixaDeCodigo(*this, ui_->txtCodCliente,
                      {.consulta = consultaDoCliente,
                       .naoLocalizado = u"Código do Cliente não Localizado ou não Cadastrado",
                       .mostra =
                           [this](const dao::Recordset &cliente) {
                               ui_->lblNomeCliente->setText(NuloParaVazio(cliente.value(u"Nome")));
                               mostraCredito();
                           },
                       .esvazia = [this] { ui_->lblNomeCliente->setText({}); },
                       .cadastro = u"frmCadaCliente",
                       .procura = ui_->btnClienteFind,
                       .modoProcura = modoProcuraClienteDoPagamento});
}

// --- custom plan

void frmOSFormaPagto::btnItemAdd_Click()
{
    plano_.acrescenta();
}

void frmOSFormaPagto::btnItemRemove_Click()
{
    plano_.remove();
}

void frmOSFormaPagto::lblSaldo_Change()
{
    plano_.mostraSituacao();
}

// --- closing

/// The amounts are compared as they are shown, character by character.
bool frmOSFormaPagto::confereRecebido(int indice)
{
    QLineEdit *recebido = txtValor_.at(indice);
    if (std::is_lt(compareBinary(recebido->text(), ui_->lblValor->text()))) {
        Recusa(u"Valor Recebido Inferior ao Total da Ordem de Serviço"_s, recebido);
        return false;
    }
    return true;
}

bool frmOSFormaPagto::confereAVista()
{
    return confereRecebido(aVista);
}

bool frmOSFormaPagto::confereChequePre()
{
    return confereRecebido(chequePre) && confereVencimento(chequePre, u"Data de Vencimento do Cheque Pré já passou"_s);
}

bool frmOSFormaPagto::confereVencimento(int indice, const QString &passou)
{
    QLineEdit *campo = txtData_.at(indice);
    if (!ValidaCampo(campo, u"Data de Vencimento Inválida"_s, TipoCampo::Data)) {
        return false;
    }
    if (venceu(campo->text())) {
        Recusa(passou, campo);
        return false;
    }
    return true;
}

bool frmOSFormaPagto::confereFiado()
{
    if (!confereVencimento(fiado, u"Data de Vencimento já passou"_s)) {
        return false;
    }
    if (Config(u"PermiteLC"_s) == u"N" && CSng(ui_->lblValor->text()) > CSng(ui_->lblLC->text())) {
        ui::MsgBox(u"Limite de Crédito Indisponível."_s, ui::Icon::Exclamation, NomeEmpresa);
        return false;
    }
    if (!ui_->lblNomeCliente->text().isEmpty()) {
        ui::setTagOf(ui_->lblNome, ui_->txtCodCliente->text());
    }
    return true;
}

bool frmOSFormaPagto::conferePersonalizado()
{
    if (ui_->Lista_5->count() == 0) {
        Recusa(u"Lista de pagamentos vazia"_s, ui_->txtParcela_5);
        return false;
    }
    return true;
}

PagamentoOS frmOSFormaPagto::pagamento(int indice) const
{
    const auto lista = Lista_.find(indice);
    return {.forma = static_cast<FormaPagamento>(indice),
            .valor = ui_->lblValor->text(),
            .banco = textoDe(txtBanco_, indice),
            .conta = textoDe(txtConta_, indice),
            .numeroCheque = ui_->txtNumCheque->text(),
            .valorCheque = ui_->txtValor_1->text(),
            .vencimento = textoDe(txtData_, indice),
            .parcelas = lista == Lista_.end() ? std::vector<ParcelaOS>() : ParcelasDe(*lista->second)};
}

std::vector<QString> frmOSFormaPagto::pedeNumerosCheques() const
{
    std::vector<QString> numeros;
    for (int linha = 1; linha <= ui_->Lista_3->count(); ++linha) {
        const QString pergunta = u"Digite o Número do Cheque da "_s + Format(linha, u"00") + u"ª Parcela"_s;
        numeros.push_back(Left(ui::InputBox(pergunta, NomeEmpresa), maximoNumeroCheque));
    }
    return numeros;
}

Fechamento frmOSFormaPagto::fechamento(int indice) const
{
    Fechamento f;
    f.codigo = ui_->lblCodigo->text();
    f.nomeCliente = ui_->lblNome->text();
    f.codCliente = ui::tagOf(ui_->lblNome);
    f.total = ui_->lblTotal->text();
    f.desconto = ui_->txtDesconto->text();
    f.pagamento = pagamento(indice);
    if (indice == cheques) {
        f.numerosCheques = pedeNumerosCheques();
    }
    f.pedeCheque = [this](const ParcelaOS &parcela) {
        return Fechamento::DadosCheque{
            pedeDado(u"Digite o nome do Banco da parcela "_s, parcela.parcela, ui_->txtBanco_5->currentText()),
            pedeDado(u"Digite o Nº da conta do cheque da parcela "_s, parcela.parcela, ui_->txtConta_5->text()),
            pedeDado(u"Digite o Nº do cheque da parcela "_s, parcela.parcela, {})};
    };
    return f;
}

void frmOSFormaPagto::btnFechar_Click(int indice)
{
    using Conferencia = bool (frmOSFormaPagto::*)();
    static constexpr std::array<Conferencia, 6> conferencias{
        &frmOSFormaPagto::confereAVista,  &frmOSFormaPagto::confereChequePre, &frmOSFormaPagto::semConferencia,
        &frmOSFormaPagto::semConferencia, &frmOSFormaPagto::confereFiado,     &frmOSFormaPagto::conferePersonalizado};

    if (!ui::Confirm(btnFechar_.at(indice)->text(), NomeEmpresa) ||
        !(this->*conferencias.at(static_cast<std::size_t>(indice)))()) {
        return;
    }
    const QString dataOut = FechaOrdem(fechamento(indice));
    const QString consulta = u"frmOSConsulta"_s;
    auto &janelas = ui::Forms::instance();
    if (!dataOut.isEmpty() && janelas.find(consulta) != nullptr) {
        Preenche(*this, consulta, dataOut);
    }
    ofereceImpressao(indice);
    Unload();
    janelas.Unload(consulta);
}

// --- printing

/// What is printed is the order as the query shows it.
void frmOSFormaPagto::imprime(int layout, int indice) const
{
    const auto *consulta = dynamic_cast<const frmOSConsulta *>(ui::Forms::instance().find(u"frmOSConsulta"_s));
    if (consulta != nullptr) {
        const PagamentoOS comPagamento = pagamento(indice);
        ImprimeOrdem(layout, consulta->ordemMostrada(), printer::printer(), &comPagamento);
    }
}

void frmOSFormaPagto::ofereceImpressao(int indice) const
{
    if (!ui::Confirm(u"Imprime Ordem de Serviço Nº "_s + ui_->lblCodigo->text(), NomeEmpresa)) {
        return;
    }
    do {
        imprime(LayoutDeImpressao(), indice);
    } while (ui::Confirm(u"Imprimir Outra Via ?"_s, NomeEmpresa));
}

/// A draft for the customer while the cheque is written: always the first layout, with the text of the first form.
void frmOSFormaPagto::btnPrint_Click()
{
    imprime(1, chequePre);
}

void frmOSFormaPagto::btnVoltar_Click()
{
    Unload();
}

} // namespace workorders
