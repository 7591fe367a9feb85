#include "finance/frmMoviFiadosConta.h"

#include "ui_frmMoviFiadosConta.h"

#include "core/banco.h"
#include "core/devolucao.h"
#include "core/informacoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "finance/livro.h"
#include "platform/dao/database.h"
#include "platform/runtime/error.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <array>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;
using runtime::Format;

namespace
{

constexpr QStringView inicioDeOrdem = u"ORDEM SERVIÇO Nº "; ///< of the description of a charge
constexpr qsizetype tamanhoDaOrdem = 4;

QString ordemDe(const dao::Recordset &linha)
{
    const QString descricao = NuloParaVazio(linha.value(u"Descricao"));
    return descricao.startsWith(inicioDeOrdem) ? descricao.right(tamanhoDaOrdem) : QString();
}

int iconeDe(const dao::Recordset &linha)
{
    return ordemDe(linha).isEmpty() ? 0 : 1;
}

constexpr std::array tabelas{TabelaMovimento{
    .tabela = u"ContaFiado",
    .consulta = u"SELECT * FROM ContaFiado WHERE CodCliente = ",
    .consultaFim = u" ORDER BY Data, Codigo",
    .lista = {.colunas = colunasDoLivro, .icone = iconeDe, .tag = ordemDe},
    .razao = &razaoContaFiado,
}};

constexpr std::array verificacoes{
    Verificacao{u"txtData", dataValida, u"Data Inválida"},
    Verificacao{u"txtDescricao", naoVazio, u"Descrição Inválida"},
    Verificacao{u"txtValor", numerico, u"Valor Inválido"},
    Verificacao{.controle = u"lblCodigo",
                .aceita = naoVazio,
                .mensagem = u"Código do Cliente Inválido",
                .foco = u"btnClienteFind",
                .soNaInclusao = true},
};

/// The row being changed is the one that stands selected, so what would choose another customer is locked with it.
constexpr Movimento movimento{
    .janela = u"frmMoviFiadosConta",
    .titulo = u" - [Contas do Cliente]",
    .tabelas = tabelas,
    .campos = camposDoLivro,
    .verificacoes = verificacoes,
    .periodo = {},
    .codigo = {},
    .travado = u"painelConta",
};

constexpr int registroExcluido = 3167;

} // namespace

frmMoviFiadosConta::frmMoviFiadosConta() : JanelaMovimento(movimento), ui_(std::make_unique<Ui::frmMoviFiadosConta>())
{
    ui_->setupUi(this);
    ligaMovimento();
    connect(this, &ui::Form::unloaded, this, bound(&frmMoviFiadosConta::Form_Unload));
    onChange(ui_->lblCodigo, &frmMoviFiadosConta::lblCodigo_Change);
    onClick(ui_->btnClienteFind, &frmMoviFiadosConta::btnClienteFind_Click);
    onClick(ui_->btnClienteInfo, &frmMoviFiadosConta::btnClienteInfo_Click);
    onClick(ui_->btnProximo, &frmMoviFiadosConta::btnProximo_Click);
    onClick(ui_->btnAnterior, &frmMoviFiadosConta::btnAnterior_Click);
    onClick(ui_->btnTodos, &frmMoviFiadosConta::btnTodos_Click);
}

frmMoviFiadosConta::~frmMoviFiadosConta() = default;

void frmMoviFiadosConta::Form_Load()
{
    JanelaMovimento::Form_Load();
    disableUnlessExists(u"frmCadaCliente"_s, {ui_->btnClienteFind});
    if (ModoChamada == modoClientesPendentes) {
        abreClientes();
    } else if (ModoChamada == modoNormal || ModoChamada == modoRelaDevedores) {
        abreCliente();
    }
    habilita();
}

void frmMoviFiadosConta::habilita()
{
    ui::enableIf(!dono().isEmpty(), ui_->btnClienteInfo, u"Nenhum cliente escolhido"_s);
    for (auto *botao : {ui_->btnAnterior, ui_->btnProximo}) {
        ui::enableIf(clientes_.has_value(), botao, u"Disponível em Clientes com Pendências"_s);
    }
}

/// The customers go with the window, and not when its object is deleted.
void frmMoviFiadosConta::Form_Unload()
{
    clientes_.reset();
}

QString frmMoviFiadosConta::dono() const
{
    return ui_->lblCodigo->text();
}

QString frmMoviFiadosConta::consulta() const
{
    return dono().isEmpty() ? QString() : tabelas.front().consulta + dono() + tabelas.front().consultaFim;
}

/// A new row is followed by another one of today.
void frmMoviFiadosConta::limpa()
{
    const bool incluiu = !alterando();
    JanelaMovimento::limpa();
    if (incluiu) {
        campos().poeTexto(u"txtData", Hoje());
    }
}

// --- the customer

/// A register that was left open may choose another customer while a row is being changed, which gives that up.
void frmMoviFiadosConta::lblCodigo_Change()
{
    habilita();
    if (alterando()) {
        btnVoltar_Click();
    } else {
        preenche();
    }
}

void frmMoviFiadosConta::abreCliente()
{
    ui_->lblCodigo->setText(Format(CodigoConsulta, mascaraCodigo));
    const dao::Recordset cliente =
        DBDados->OpenRecordset(u"SELECT Nome, Fone1 FROM Clientes WHERE Codigo = "_s + dono());
    const bool existe = !cliente.Eof();
    ui_->lblNome->setText(existe ? NuloParaVazio(cliente.value(u"Nome")) : u"Código Não Localizado"_s);
    ui_->lblFone->setText(existe ? NuloParaVazio(cliente.value(u"Fone1")) : QString());
    ui::enableIf(false, ui_->btnClienteFind, u"A janela foi aberta para este cliente"_s);
}

void frmMoviFiadosConta::abreClientes()
{
    dao::Recordset clientes =
        DBDados->OpenRecordset(u"SELECT Clientes.Codigo, Clientes.Nome, Clientes.Fone1 FROM Clientes, ContaFiado "
                               "WHERE Clientes.Codigo = ContaFiado.CodCliente ORDER BY Clientes.Codigo"_s);
    if (clientes.Eof()) {
        ui::enableIf(false, ui_->btnClienteFind, u"Nenhum cliente tem conta"_s);
        return;
    }
    clientes_ = std::move(clientes);
    mostraCliente();
}

void frmMoviFiadosConta::btnClienteFind_Click()
{
    Chama(u"frmCadaCliente"_s, modoProcuraClienteDaConta);
}

void frmMoviFiadosConta::btnClienteInfo_Click()
{
    MostraInformacoes(TipoInformacao::Cliente, dono());
}

void frmMoviFiadosConta::btnProximo_Click()
{
    anda(&dao::Recordset::MoveNext, &dao::Recordset::Eof, &dao::Recordset::MoveLast);
}

void frmMoviFiadosConta::btnAnterior_Click()
{
    anda(&dao::Recordset::MovePrevious, &dao::Recordset::Bof, &dao::Recordset::MoveFirst);
}

/// To the next row of another customer than the one shown, and back to the last one where there is none.
void frmMoviFiadosConta::anda(void (dao::Recordset::*passo)(), bool (dao::Recordset::*fim)() const,
                              void (dao::Recordset::*volta)())
{
    const QString mostrado = dono();
    QString cliente;
    do {
        ((*clientes_).*passo)();
        cliente = ((*clientes_).*fim)() ? QString() : clienteDaLinha();
    } while (!((*clientes_).*fim)() && (cliente.isEmpty() || cliente == mostrado));
    if (((*clientes_).*fim)()) {
        ((*clientes_).*volta)();
    }
    mostraCliente();
}

/// "" for a row that was deleted since the customers were opened, in this window or at another workstation.
QString frmMoviFiadosConta::clienteDaLinha() const
{
    try {
        return Format(clientes_->value(u"Codigo"), mascaraCodigo);
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() != registroExcluido) {
            throw;
        }
        return {};
    }
}

void frmMoviFiadosConta::mostraCliente()
{
    const QString codigo = clienteDaLinha();
    if (codigo.isEmpty()) {
        return;
    }
    ui_->lblNome->setText(NuloParaVazio(clientes_->value(u"Nome")));
    ui_->lblFone->setText(NuloParaVazio(clientes_->value(u"Fone1")));
    ui_->lblCodigo->setText(codigo);
}

void frmMoviFiadosConta::btnTodos_Click()
{
    preenche();
}

} // namespace finance
