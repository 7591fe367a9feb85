#include "shell/menus.h"

#include "core/modos.h"
#include "core/modulo.h"
#include "platform/ui/application.h"
#include "platform/ui/controls.h"
#include "platform/ui/forms.h"
#include "shell/configuracoes.h"
#include "shell/copias.h"

#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

using enum core::Modo;

/// One command of the menus: the window it opens, the function it runs, or the setting of its name, which it asks for
/// (`ajusteDe`). A command that has none of them shows a text, or its window does not exist yet, and is unavailable.
/// One without a name is a line between its neighbours.
struct ItemMenu {
    QStringView nome = {};
    QStringView legenda = {};
    QStringView janela = {};
    std::optional<qint16> modo = {}; ///< what `ModoChamada` becomes; unset leaves the last value
    bool modal = false;
    void (*funcao)() = nullptr;
};

/// A menu of the main window. One without items is a command of its own.
struct Menu {
    QStringView nome;
    QStringView legenda;
    std::span<const ItemMenu> itens;
    void (*funcao)() = nullptr;
};

/// A button of the toolbar by its number; the numbers that are missing are separators.
struct Botao {
    int numero;
    QStringView dica;
    QStringView alvo; ///< the item or menu command it stands for, or the menu that it pops up
};

constexpr int ultimoBotao = 19;

struct Icone {
    QStringView nome;
    QStringView icone;
};

constexpr auto icones = std::to_array<Icone>({
    {u"itmCadaClie", u"resource-group"},
    {u"itmCadaVeiculos", u"car"},
    {u"itmCadaPecas", u"tools"},
    {u"itmCadaFornecedores", u"tarvelo-fornecedor"},
    {u"itmMoviEntradaPecas", u"tarvelo-entrada"},
    {u"itmMoviCaixa", u"wallet-open"},
    {u"itmMoviContasPR", u"view-calendar-upcoming-events"},
    {u"itmMoviCheques", u"view-financial-account-checking"},
    {u"itmOSAbrir", u"document-new"},
    {u"itmOSConsultar", u"document-preview"},
    {u"itmOSAltera", u"document-edit"},
    {u"itmOSFecha", u"task-complete"},
    {u"itmOSImprimirNota", u"document-print"},
    {u"itmOSOrcaNovo", u"view-financial-budget"},
    {u"itmOSOrcaConsulta", u"document-preview"},
    {u"itmOSOrcaAltera", u"document-edit"},
    {u"itmConfigSenha", u"object-locked"},
    {u"itmInfoSobre", u"help-about"},
    {u"mnuRelatorios", u"office-chart-bar"},
    {u"mnuConfig", u"configure"},
    {u"mnuBackup", u"backup"},
    {u"mnuSair", u"tarvelo-saida"},
});

constexpr ItemMenu linha = {};

constexpr auto cadastro = std::to_array<ItemMenu>({
    {u"itmCadaClie", u"Cadastro de &Clientes...", u"frmCadaCliente", modoNormal},
    {u"itmCadaVeiculos", u"Cadastro de &Veiculos...", u"frmCadaVeiculos", modoNormal},
    {u"itmCadaPecas", u"Cadastro de &Peças/Serviços...", u"frmCadaPecas", modoNormal},
    {u"itmCadaFornecedores", u"Cadastro de &Fornecedores...", u"frmCadaFornecedor", modoNormal},
});

constexpr auto movimentacoes = std::to_array<ItemMenu>({
    {u"itmMoviEntradaPecas", u"&Entrada de Peças...", u"frmMoviEntradaPeca", modoNormal},
    {u"itmMoviEntradaPecasConsultar", u"Consulta &Entrada de Peças Geral...", u"frmMoviEntradaPecaConsulta",
     modoNormal},
    {u"itmMoviConsEntrPecaFornecedor", u"Consulta &Entrada de Peças Fornecedor...", u"frmRelaSelecaoNotasEntradas",
     modoConsultaNotasFornecedor},
    {u"itmMoviEstoque", u"E&stoque...", u"frmMoviEstoque", modoNormal},
    linha,
    {u"itmMoviCaixa", u"&Livro Caixa...", u"frmMoviCaixa", modoNormal},
    {u"itmMoviContasPR", u"&Contas a Pagar/Receber...", u"frmMoviContasPR", modoNormal},
    {u"itmMoviCheques", u"&Relação de Cheques...", u"frmMoviCheques", modoNormal},
    linha,
    {u"itmMoviFiado", u"&Ordens de Serviços Pendentes...", u"frmMoviFiados", modoNormal},
    {u"itmMoviClientePendente", u"Clientes com &Pendências...", u"frmMoviFiadosConta", modoClientesPendentes},
    linha,
    {u"itmMoviOrigem", u"Livro de Origem...", u"frmMoviLivroOrigem", modoNormal},
});

constexpr auto ordemServico = std::to_array<ItemMenu>({
    {u"itmOSAbrir", u"&Abrir O.S. ...", u"frmOSAbre", modoNormal},
    {u"itmOSConsultar", u"&Consultar O.S. ...", u"frmOSConsulta", modoNormal},
    {u"itmOSAltera", u"Alterar/&Excluir O.S. ...", u"frmOSAltera", modoNormal},
    {u"itmOSFecha", u"&Fechar O.S. ...", u"frmOSConsulta", modoFechaOS},
    linha,
    {u"itmOSImprimirNota", u"Imprimir Nota...", u"frmNota"},
});

constexpr auto orcamento = std::to_array<ItemMenu>({
    {u"itmOSOrcaNovo", u"&Novo Orçamento...", u"frmOSOrcaNovo", modoNormal},
    {u"itmOSOrcaConsulta", u"&Consultar Orçamento...", u"frmOSOrcaConsulta", modoNormal},
    {u"itmOSOrcaAltera", u"&Alterar/Excluir Orçamento...", u"frmOSOrcaAltera", modoNormal},
});

constexpr auto relatorios = std::to_array<ItemMenu>({
    {u"itmRelaNotaEntradaUmFornecedor", u"&Notas de Entrada de um Fornecedor...", u"frmRelaSelecaoNotasEntradas",
     modoNormal},
    {u"itmRelaEstoqueGeralPecas", u"&Estoque Geral de Peças...", u"frmRelatorio", modoRelaEstoqueGeral},
    {u"itmRelaListaCompras", u"Lis&ta de Compras...", u"frmRelatorio", modoRelaCompras},
    {u"itmRelaListaPecas", u"Lista de Peças / Serviços...", u"frmRelatorio", modoRelaPecas},
    {u"itmRelaPecaServVendidos", u"Peças/Serviços Vendidos...", u"frmRelaSelecaoPecas"},
    linha,
    {u"itmRelaVencimentosContas", u"&Vencimentos de Contas...", u"frmInfoAviso", modoNormal},
    {u"itmRelaOrdensServicos", u"&Ordens de Serviços...", u"frmRelaSelecaoOS", modoNormal},
    {u"itmRelaContasPagarReceber", u"&Contas à Pagar/Receber...", u"frmRelaSelecaoContasPR", modoRelaContas},
    {u"itmRelaListaDevedores", u"&Lista de Devedores...", u"frmRelatorio", modoRelaDevedores},
    {u"itmRelaCheques", u"C&heques...", u"frmRelaSelecaoCheques", modoRelaCheques},
    {u"itmRelaLivroCaixa", u"Livro Cai&xa...", u"frmMoviCaixa", modoRelaCaixa},
    linha,
    {u"itmRelaVisitas", u"V&isitas de Clientes...", u"frmRelatorio", modoRelaVisitas},
    {u"itmRelaVeiculos", u"Visitas de Veíc&ulos...", u"frmRelatorio", modoRelaVisitasVeiculos},
    {u"itmRelaNiver", u"Aniversariantes do Mês...", u"frmRelatorio", modoRelaAniversarios},
    linha,
    {u"itmRelaBalanco", u"&Balanço Geral...", u"frmBalanco", modoNormal},
});

constexpr auto configuracoes = std::to_array<ItemMenu>({
    {u"itmConfigNome", u"&Nome Empresa..."},
    {u"itmConfigEndereco", u"&Endereço..."},
    {u"itmConfigBairro", u"Ba&irro - Cidade - UF"},
    {u"itmConfigTelefone", u"Tele&fone..."},
    {u"itmConfigLogo", u"&Logo...", u"frmConfigLogo"},
    linha,
    {u"itmConfigTaxaJuros", u"&Taxa de Juros Mensal..."},
    {u"itmConfigDesconto", u"&Desconto máximo permitido..."},
    {u"itmConfigBloquearLC", u"&Bloquear Limite de Crédito..."},
    linha,
    {u"itmConfigCEP", u"B&uscar Endereço pelo CEP..."},
    {u"itmConfigAutoComplete", u"Ativar Função &Autocompletar..."},
    {u"itmConfigAvisaVencimentoContas", u"Avisar Vencimento de Contas..."},
    {u"itmConfigAvisaBackup", u"Avisar Quando Fazer Backup..."},
    {u"itmConfigLancarReg", u"Lançar Reg. Aut. C.R. no Livro Caixa..."},
    {u"itmConfigCadastroAutomatico", u"Preenchimento Cadastro Automático..."},
    linha,
    {u"itmConfigLayoutOS", u"Cód. Layout Impressão O.S. ..."},
    {u"itmConfigPrintFormaPagtoOs", u"Imprime Forma Pagto. O.S. ..."},
    {u"itmConfigPersonalizacao", u"Código de &Personalização..."},
    {u"itmConfigOrcamento", u"&Orçamento...", u"frmConfigOrcamento"},
    linha,
    {u"itmConfigSenha", u"&Manutenção de Senha...", u"frmSenhaManut", std::nullopt, true},
});

constexpr auto backup = std::to_array<ItemMenu>({
    {.nome = u"itmBackBackBD", .legenda = u"Fazer Backup Banco de Dados...", .funcao = FazBackupBanco},
    {.nome = u"itmBackBackFI", .legenda = u"Fazer Backup Figuras...", .funcao = FazBackupFiguras},
    linha,
    {.nome = u"itmBackRestBD", .legenda = u"Restaurar Banco de Dados...", .funcao = RestauraBanco},
    {.nome = u"itmBackRestFI", .legenda = u"Restaurar Figuras...", .funcao = RestauraFiguras},
    linha,
    {u"itmBackUltimo", u"Último Backup Banco Dados em"},
    {u"itmBackData", u""},
});

constexpr auto info = std::to_array<ItemMenu>({
    {u"itmInfoSobre", u"Sobre...", u"frmInfo"},
});

void sai()
{
    ui::End();
}

constexpr auto tabelaMenus = std::to_array<Menu>({
    {u"mnuCadastro", u"&Cadastro", cadastro},
    {u"mnuMovimentacoes", u"&Movimentações", movimentacoes},
    {u"mnuOS", u"&Ordem de Serviço", ordemServico},
    {u"mnuOrcamento", u"Or&çamentos", orcamento},
    {u"mnuRelatorios", u"&Relatórios", relatorios},
    {u"mnuConfig", u"Confi&gurações", configuracoes},
    {u"mnuBackup", u"&Backup", backup},
    {u"mnuInfo", u"&Info", info},
    {u"mnuSair", u"&Sair", {}, sai},
});

constexpr auto tabelaBotoes = std::to_array<Botao>({
    {1, u"Cadastro de Clientes", u"itmCadaClie"},
    {2, u"Cadastro de Veículos", u"itmCadaVeiculos"},
    {3, u"Cadastro de Peças/Serviços", u"itmCadaPecas"},
    {4, u"Cadastro de Fornecedores", u"itmCadaFornecedores"},
    {6, u"Entrada de Peças", u"itmMoviEntradaPecas"},
    {7, u"Livro Caixa", u"itmMoviCaixa"},
    {8, u"Contas à Pagar/Receber", u"itmMoviContasPR"},
    {9, u"Cheques", u"itmMoviCheques"},
    {11, u"Abrir Nova Ordem de Serviço", u"itmOSAbrir"},
    {12, u"Fecha Ordem de Serviço", u"itmOSFecha"},
    {14, u"Novo Orçamento", u"itmOSOrcaNovo"},
    {16, u"Relatórios", u"mnuRelatorios"},
    {17, u"Configurações", u"mnuConfig"},
    {18, u"Backup", u"mnuBackup"},
    {19, u"Fechar Programa", u"mnuSair"},
});

constexpr auto soAdministrador = std::to_array<QStringView>({u"mnuMovimentacoes", u"mnuConfig", u"mnuRelatorios"});
constexpr auto botoesSoAdministrador = std::to_array<int>({6, 7, 8, 9, 15, 16, 17});

struct Personalizado {
    QStringView item;
    QStringView codigo;
};

constexpr auto personalizados = std::to_array<Personalizado>({
    {u"itmMoviOrigem", u"1-1"},
    {u"itmOSImprimirNota", u"2-2"},
});

/// True when the item's window exists, or its function or setting is there.
bool disponivel(const ItemMenu &item)
{
    return item.funcao != nullptr || ajusteDe(item.nome) != nullptr ||
           (!item.janela.isEmpty() && ui::Forms::instance().exists(item.janela.toString()));
}

/// A command with a mode wants its window in that mode, and gets it afresh where it stands open in another. One without
/// asks for none: its window takes the last mode when it is loaded, and one that is open comes to the front.
void abreJanela(const ItemMenu &item)
{
    auto &janelas = ui::Forms::instance();
    const QString nome = item.janela.toString();
    if (item.modal) {
        janelas.ShowModal(nome);
    } else if (item.modo) {
        janelas.ShowInMode(nome);
    } else {
        janelas.Show(nome);
    }
}

/// Runs an item: sets `ModoChamada`, then shows its window, calls its function or asks for its setting.
void aciona(const ItemMenu &item)
{
    core::ModoChamada = item.modo.value_or(core::ModoChamada);
    if (item.funcao != nullptr) {
        item.funcao();
    } else if (const core::Ajuste *ajuste = ajusteDe(item.nome)) {
        core::PerguntaAjuste(*ajuste);
    } else {
        abreJanela(item);
    }
}

QAction *acaoDe(QMenuBar &barra, QStringView nome)
{
    return barra.findChild<QAction *>(nome.toString());
}

const ItemMenu &itemDe(QStringView nome)
{
    for (const Menu &menu : tabelaMenus) {
        const auto achado = std::ranges::find(menu.itens, nome, &ItemMenu::nome);
        if (achado != menu.itens.end()) {
            return *achado;
        }
    }
    return linha;
}

QString nomeDoBotao(const QToolBar &barra, int numero)
{
    return barra.objectName() + u'_' + QString::number(numero);
}

QIcon iconeDe(QStringView nome)
{
    const auto *const achado = std::ranges::find(icones, nome, &Icone::nome);
    return achado == icones.end() ? QIcon() : ui::icon(achado->icone.toString());
}

void acrescentaItem(QMenu &menu, const ItemMenu &item)
{
    if (item.nome.isEmpty()) {
        menu.addSeparator();
        return;
    }
    QAction *acao = menu.addAction(item.legenda.toString());
    acao->setObjectName(item.nome);
    acao->setIcon(iconeDe(item.nome));
    acao->setEnabled(disponivel(item));
    QObject::connect(acao, &QAction::triggered, &menu, [&item] { ui::Application::run([&item] { aciona(item); }); });
}

void acrescentaComando(QMenuBar &barra, const Menu &menu)
{
    QAction *acao = barra.addAction(menu.legenda.toString());
    acao->setObjectName(menu.nome);
    QObject::connect(acao, &QAction::triggered, &barra, [&menu] { ui::Application::run(menu.funcao); });
}

void acrescentaMenu(QMenuBar &barra, const Menu &menu)
{
    QMenu *novo = barra.addMenu(menu.legenda.toString());
    novo->setObjectName(menu.nome);
    novo->menuAction()->setObjectName(menu.nome);
    for (const ItemMenu &item : menu.itens) {
        acrescentaItem(*novo, item);
    }
}

void ligaBotao(QAction *acao, const Botao &botao, QMenuBar &menuBar)
{
    if (auto *menu = menuBar.findChild<QMenu *>(botao.alvo.toString())) {
        QObject::connect(acao, &QAction::triggered, menu, [menu] { menu->popup(QCursor::pos()); });
        return;
    }
    QAction *alvo = acaoDe(menuBar, botao.alvo);
    acao->setEnabled(alvo->isEnabled());
    QObject::connect(acao, &QAction::triggered, alvo, &QAction::trigger);
}

QAction *acrescentaBotao(QToolBar &barra, int numero, QMenuBar &menuBar)
{
    const auto *const botao = std::ranges::find(tabelaBotoes, numero, &Botao::numero);
    if (botao == tabelaBotoes.end()) {
        return barra.addSeparator();
    }
    QAction *acao = barra.addAction(iconeDe(botao->alvo), botao->dica.toString());
    acao->setToolTip(botao->dica.toString());
    ligaBotao(acao, *botao, menuBar);
    return acao;
}

} // namespace

void montaMenus(QMenuBar &barra)
{
    for (const Menu &menu : tabelaMenus) {
        if (menu.funcao != nullptr) {
            acrescentaComando(barra, menu);
        } else {
            acrescentaMenu(barra, menu);
        }
    }
}

void montaBarra(QToolBar &barra, QMenuBar &menuBar)
{
    for (int numero = 1; numero <= ultimoBotao; ++numero) {
        QAction *acao = acrescentaBotao(barra, numero, menuBar);
        acao->setObjectName(nomeDoBotao(barra, numero));
        barra.widgetForAction(acao)->setObjectName(acao->objectName());
    }
}

void fechaAoUsuario(QMenuBar &menuBar, QToolBar &barra)
{
    for (const QStringView menu : soAdministrador) {
        acaoDe(menuBar, menu)->setEnabled(false);
    }
    for (const int numero : botoesSoAdministrador) {
        barra.findChild<QAction *>(nomeDoBotao(barra, numero))->setEnabled(false);
    }
}

void personaliza(QMenuBar &menuBar, const QString &codigo)
{
    for (const Personalizado &um : personalizados) {
        acaoDe(menuBar, um.item)->setEnabled(codigo == um.codigo && disponivel(itemDe(um.item)));
    }
}

} // namespace shell
