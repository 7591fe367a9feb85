#include "workorders/frmNota.h"

#include "ui_frmNota.h"

#include "core/caixacodigo.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/lista.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/runtime/format.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <QScopeGuard>

#include <array>
#include <span>

namespace workorders
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array colunasDasOrdens{
    ColunaLista{u"Cód OS.", 1000},
    ColunaLista{u"Placa", 1200},
};

constexpr std::array colunasDasPecas{
    ColunaLista{u"Código", 750},
    ColunaLista{u"Descrição", 2600},
    ColunaLista{u"Class. Fiscal", 1300},
    ColunaLista{u"Sit. Trib.", 850},
    ColunaLista{u"Unidade", 1000},
    ColunaLista{.titulo = u"Quantidade", .largura = 1250, .alinhamento = Qt::AlignRight},
    ColunaLista{.titulo = u"V. Unit.", .largura = 1250, .alinhamento = Qt::AlignRight},
    ColunaLista{.titulo = u"V. Total", .largura = 1250, .alinhamento = Qt::AlignRight},
    ColunaLista{.titulo = u"Alíquota ICMS", .largura = 1400, .alinhamento = Qt::AlignRight},
};

constexpr std::array colunasDosServicos{
    ColunaLista{.titulo = u"Quantidade", .largura = 1300, .alinhamento = Qt::AlignRight},
    ColunaLista{u"Unidade", 1100},
    ColunaLista{u"Especificação", 5900},
    ColunaLista{.titulo = u"V. Unit.", .largura = 1400, .alinhamento = Qt::AlignRight},
    ColunaLista{.titulo = u"V. Total", .largura = 1500, .alinhamento = Qt::AlignRight},
};

/// What of an item stands in the columns.
using Texto = QString ItemDaNota::*;
constexpr std::array<Texto, colunasDasPecas.size()> textosDasPecas{
    &ItemDaNota::codigo,    &ItemDaNota::descricao,  &ItemDaNota::classFiscal,
    &ItemDaNota::sitTrib,   &ItemDaNota::unidade,    &ItemDaNota::quantidade,
    &ItemDaNota::valorUnit, &ItemDaNota::valorTotal, &ItemDaNota::icms};
constexpr std::array<Texto, colunasDosServicos.size()> textosDosServicos{&ItemDaNota::quantidade, &ItemDaNota::unidade,
                                                                         &ItemDaNota::descricao, &ItemDaNota::valorUnit,
                                                                         &ItemDaNota::valorTotal};

/// What of the customer stands in the labels.
struct Rotulo {
    ui::Label *Ui::frmNota::*rotulo;
    QString ClienteDaNota::*texto;
};
constexpr std::array rotulos{
    Rotulo{&Ui::frmNota::lblCodCliente, &ClienteDaNota::codigo},
    Rotulo{&Ui::frmNota::lblNome, &ClienteDaNota::nome},
    Rotulo{&Ui::frmNota::lblCPF, &ClienteDaNota::cpf},
    Rotulo{&Ui::frmNota::lblRG, &ClienteDaNota::rg},
    Rotulo{&Ui::frmNota::lblEndereco, &ClienteDaNota::endereco},
    Rotulo{&Ui::frmNota::lblNumero, &ClienteDaNota::numero},
    Rotulo{&Ui::frmNota::lblBairro, &ClienteDaNota::bairro},
    Rotulo{&Ui::frmNota::lblCEP, &ClienteDaNota::cep},
    Rotulo{&Ui::frmNota::lblCidade, &ClienteDaNota::cidade},
    Rotulo{&Ui::frmNota::lblEstado, &ClienteDaNota::estado},
    Rotulo{&Ui::frmNota::lblFone1, &ClienteDaNota::fone1},
};

void acrescentaItens(ui::ListView &lista, std::span<const Texto> textos, ui::Label &total,
                     const std::vector<ItemDaNota> &itens)
{
    for (const ItemDaNota &item : itens) {
        QStringList colunas;
        for (const Texto texto : textos) {
            colunas << item.*texto;
        }
        const QString primeira = colunas.takeFirst();
        lista.addItem(primeira, colunas);
        total.setText(SomaTexto(total.text(), item.valorTotal));
    }
}

std::vector<ItemDaNota> itensDe(const ui::ListView &lista, std::span<const Texto> textos)
{
    std::vector<ItemDaNota> itens;
    for (int linha = 0; linha < lista.count(); ++linha) {
        ItemDaNota item;
        int lugar = 0;
        for (const Texto texto : textos) {
            item.*texto = lista.item(linha).subItem(lugar++);
        }
        itens.push_back(item);
    }
    return itens;
}

} // namespace

frmNota::frmNota() : ui::Form(u"frmNota"_s), ui_(std::make_unique<Ui::frmNota>())
{
    ui_->setupUi(this);
    onGotFocus(ui_->txtOS, &frmNota::txtOS_GotFocus);
    onChange(ui_->txtOS, &frmNota::txtOS_Change);
    new CaixaDeCodigo(*this, ui_->txtOS,
                      {.cadastro = u"frmOSConsulta", .procura = ui_->btnOSFind, .modoProcura = modoProcuraOSDaNota});
    onClick(ui_->btnItemAdd, &frmNota::btnItemAdd_Click);
    onClick(ui_->Command1, &frmNota::Command1_Click);
    onClick(ui_->Command2, &frmNota::Command2_Click);
    onClick(ui_->btnVoltar, &frmNota::btnVoltar_Click);
    txtOS_Change();
}

frmNota::~frmNota() = default;

void frmNota::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Impressão de Notas]"_s));
    disableUnlessExists(u"frmOSConsulta"_s, {ui_->btnOSFind});
    MontaLista(*ui_->lstOS, {.colunas = colunasDasOrdens});
    MontaLista(*ui_->lstPecas, {.colunas = colunasDasPecas});
    MontaLista(*ui_->lstServicos, {.colunas = colunasDosServicos});
    ui_->cboPrinter->addItems(printer::devices());
    ui_->cboPrinter->setCurrentText(printer::printer().DeviceName());
}

void frmNota::txtOS_GotFocus()
{
    SelecionaTexto(ui_->txtOS);
}

void frmNota::txtOS_Change()
{
    ui::enableIf(!ui_->txtOS->text().isEmpty(), ui_->btnItemAdd, u"Digite o número da ordem de serviço"_s, ui_->txtOS);
}

// --- the orders of the note

void frmNota::btnItemAdd_Click()
{
    if (const QString motivo = acrescenta(); !motivo.isEmpty()) {
        Recusa(motivo, ui_->txtOS);
        return;
    }
    ui_->txtOS->clear();
    ui_->txtOS->setFocus();
}

/// Adds the order of the box with its items; why not, where it is refused. A refused order changes nothing.
QString frmNota::acrescenta()
{
    const auto numero = CodigoDoTexto(ui_->txtOS->text());
    if (numero && adicionada(runtime::Format(*numero, mascaraCodigo))) {
        return u"O.S. Já adicionada"_s;
    }
    const auto ordem = numero ? ProcuraOrdemDaNota(*numero) : std::nullopt;
    if (!ordem) {
        return u"Código da O.S. Não Localizado"_s;
    }
    if (QString motivo = outroCliente(*ordem); !motivo.isEmpty()) {
        return motivo;
    }
    const auto cliente = ProcuraClienteDaNota(ordem->codCliente);
    if (!cliente) {
        return u"Cliente Não Localizado"_s;
    }
    const ItensDaNota itens = LeItensDaNota(*numero);
    mostraCliente(*cliente);
    mostraItens(itens);
    ui_->lstOS->addItem(ordem->codigo, {ordem->placa});
    return {};
}

bool frmNota::adicionada(const QString &codigo) const
{
    return !ui_->lstOS->rowsWhere(0, [&](const QString &texto) { return texto == codigo; }).empty();
}

QString frmNota::outroCliente(const OrdemDaNota &ordem) const
{
    const bool primeira = ui_->lstOS->count() == 0;
    if (primeira || runtime::Format(ordem.codCliente, mascaraCodigo) == ui_->lblCodCliente->text()) {
        return {};
    }
    return u"Você só pode adicionar O.S. do cliente: "_s + ui_->lblNome->text();
}

void frmNota::mostraCliente(const ClienteDaNota &cliente)
{
    for (const Rotulo &rotulo : rotulos) {
        (ui_.get()->*rotulo.rotulo)->setText(cliente.*rotulo.texto);
    }
}

void frmNota::mostraItens(const ItensDaNota &itens)
{
    acrescentaItens(*ui_->lstPecas, textosDasPecas, *ui_->lblTotalPecas, itens.pecas);
    acrescentaItens(*ui_->lstServicos, textosDosServicos, *ui_->lblTotalServicos, itens.servicos);
}

// --- printing

void frmNota::Command1_Click()
{
    imprime(TipoNota::Pecas);
}

void frmNota::Command2_Click()
{
    imprime(TipoNota::Servicos);
}

/// The note of services has the words of the other one, though it has room for more.
void frmNota::imprime(TipoNota tipo)
{
    const NotaImpressa impressa = nota(tipo);
    const std::size_t maximo = tipo == TipoNota::Pecas ? maximoDePecas : maximoDeServicos;
    if (impressa.itens.size() > maximo) {
        ui::MsgBox(u"Número máximo de itens na nota de peças permitido é 23"_s, ui::Icon::Exclamation);
        return;
    }
    {
        printer::Printer &papel = printer::printer();
        const auto volta =
            qScopeGuard([&papel, antes = papel.setDevice(ui_->cboPrinter->currentText())] { papel.setDevice(antes); });
        ImprimeNota(impressa, papel);
    }
    ui::MsgBox(u"A Impressão foi concluída com sucesso"_s, ui::Icon::Information);
    AvancaNota(tipo);
}

NotaImpressa frmNota::nota(TipoNota tipo) const
{
    NotaImpressa nota{.tipo = tipo, .numero = ProximaNota(tipo), .cliente = {}, .ordens = {}, .itens = {}, .total = {}};
    for (const Rotulo &rotulo : rotulos) {
        nota.cliente.*rotulo.texto = (ui_.get()->*rotulo.rotulo)->text();
    }
    for (int linha = 0; linha < ui_->lstOS->count(); ++linha) {
        const ui::ListItem ordem = ui_->lstOS->item(linha);
        nota.ordens << ordem.text() + u'/' + ordem.subItem(1);
    }
    if (tipo == TipoNota::Pecas) {
        nota.itens = itensDe(*ui_->lstPecas, textosDasPecas);
        nota.total = ui_->lblTotalPecas->text();
    } else {
        nota.itens = itensDe(*ui_->lstServicos, textosDosServicos);
        nota.total = ui_->lblTotalServicos->text();
    }
    return nota;
}

void frmNota::btnVoltar_Click()
{
    Unload();
}

} // namespace workorders
