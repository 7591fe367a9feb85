#include "finance/frmMoviFiados.h"

#include "ui_frmMoviFiados.h"

#include "core/banco.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "finance/pendencia.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <array>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr int colunaOs = 1;
constexpr int colunaNome = 2;
constexpr int colunaValor = 4;

constexpr std::array colunas{
    ColunaLista{u"", 280, u"Codigo", comoCodigo},
    ColunaLista{u"Cód. O.S.", 1200, u"CodOs", comoCodigo},
    ColunaLista{u"Nome Cliente", 4300, u"Nome", comoEsta},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Valor", 1200, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1300, u"Vencimento", comoData},
    ColunaLista{u"Pago", 500, u"Pago", comoSimNao},
};

constexpr std::array<QStringView, 4> semOrdens{u"", u"", u"Registro Não Localizado", u" "};

QString ordemDe(const dao::Recordset &linha)
{
    const QString codOs = NuloParaVazio(linha.value(u"CodOs"));
    return codOs == u"0" ? QString() : codOs;
}

int iconeDe(const dao::Recordset &linha)
{
    return ordemDe(linha).isEmpty() ? 0 : 1;
}

constexpr std::array tabelas{TabelaMovimento{
    .tabela = u"Fiados",
    .consulta = u"SELECT FIADOS.*, Clientes.Nome FROM FIADOS, Clientes",
    .consultaFim = u" ORDER BY Fiados.Vencimento",
    .lista = {.colunas = colunas, .icone = iconeDe, .tag = ordemDe, .vazia = semOrdens},
}};

constexpr Movimento movimento{
    .janela = u"frmMoviFiados",
    .titulo = u" - [Ordens de Serviços Pendentes]",
    .tabelas = tabelas,
    .campos = {},
    .periodo = {},
    .codigo = {},
    .teclaP = true,
};

constexpr QStringView doCliente = u"Clientes.Codigo = Fiados.CodCliente";

/// By the entry of `cboOS`: paid, unpaid, all.
constexpr std::array<QStringView, 3> situacoes{u"Fiados.Pago = True AND ", u"Fiados.Pago = False AND ", u""};
constexpr std::size_t naoPagas = 1;

constexpr std::array pesquisas{
    Pesquisa{u"Nome Cliente", u" AND Clientes.Nome LIKE '*", Comparacao::Contem},
    Pesquisa{u"Fone1 do Cliente", u" AND Clientes.Fone1 LIKE '*", Comparacao::Contem},
    Pesquisa{u"Celular do Cliente", u" AND Clientes.Celular LIKE '*", Comparacao::Contem},
    Pesquisa{u"Placa do Veículo",
             u" AND OrdemServico.Codigo = Fiados.CodOs AND Veiculos.Codigo = OrdemServico.CodVeiculo "
             "AND Veiculos.Placas LIKE '*",
             Comparacao::Contem},
};

/// By the entry of `cboPesquisa`: the tables that a search asks besides.
constexpr std::array<QStringView, pesquisas.size()> outrasTabelas{u"", u"", u"", u", OrdemServico, Veiculos"};

QString consultaDe(std::size_t situacao, QStringView mais = {}, const QString &condicao = {})
{
    const TabelaMovimento &tabela = tabelas.front();
    return tabela.consulta + mais + u" WHERE "_s + situacoes.at(situacao) + doCliente + condicao + tabela.consultaFim;
}

} // namespace

frmMoviFiados::frmMoviFiados() : JanelaMovimento(movimento), ui_(std::make_unique<Ui::frmMoviFiados>())
{
    ui_->setupUi(this);
    ligaMovimento();
    onChange(ui_->cboOS, &frmMoviFiados::cboOS_Change);
    onClick(ui_->btnTodos, &frmMoviFiados::btnTodos_Click);
    onClick(ui_->btnPesquisar, &frmMoviFiados::btnPesquisar_Click);
    onClick(ui_->btnLocalizar, &frmMoviFiados::btnLocalizar_Click);
    onClick(ui_->btnConta, &frmMoviFiados::btnConta_Click);
    onSelection(ui_->Lista, &frmMoviFiados::habilitaConta);
}

frmMoviFiados::~frmMoviFiados() = default;

void frmMoviFiados::Form_Load()
{
    MontaPesquisas(*ui_->cboPesquisa, pesquisas);
    consulta_ = consultaDe(naoPagas);
    JanelaMovimento::Form_Load();
    habilitaConta();
    ui_->txtTexto->setFocus();
}

void frmMoviFiados::cboOS_Change()
{
    btnTodos_Click();
}

void frmMoviFiados::btnTodos_Click()
{
    consulta_ = consultaDe(static_cast<std::size_t>(ui_->cboOS->currentIndex()));
    preenche();
}

/// Among the unpaid ones, whatever situation is chosen.
void frmMoviFiados::btnPesquisar_Click()
{
    const auto escolha = static_cast<std::size_t>(ui_->cboPesquisa->currentIndex());
    consulta_ = consultaDe(naoPagas, outrasTabelas.at(escolha), Condicao(pesquisas.at(escolha), ui_->txtTexto->text()));
    preenche();
}

void frmMoviFiados::btnLocalizar_Click()
{
    LocalizaLista(ui_->Lista, ui_->txtTexto->text(), colunaNome + 1, true, true);
}

/// The question is the same in both directions: an order whose mark is taken back may be posted once more.
void frmMoviFiados::teclaP(const ui::ListItem &linha)
{
    const QString ordem = linha.subItem(colunaOs);
    const QString valor = linha.subItem(colunaValor);
    if (AlternaPendencia(linha.tag(), linha.text()) != Pendencia::Completa) {
        return;
    }
    if (ui::Confirm(u"Lançar pagamento da O.S. pendente no Livro Caixa"_s, NomeEmpresa)) {
        LancaPendencia(ordem, valor);
    }
    preenche();
}

// --- the account

/// The code of the row that is selected; "" for none, or for the one that stands for no result.
QString frmMoviFiados::escolhida() const
{
    const int linha = ui_->Lista->selectedRow();
    return linha < 0 ? QString() : ui_->Lista->item(linha).text();
}

void frmMoviFiados::btnConta_Click()
{
    const QString codigo = escolhida();
    if (codigo.isEmpty()) {
        return;
    }
    const dao::Recordset linha = DBDados->OpenRecordset(u"SELECT CodCliente FROM Fiados WHERE Codigo = "_s + codigo);
    if (linha.Eof()) {
        return;
    }
    ModoChamada = modoNormal;
    CodigoConsulta = runtime::CLng(linha.value(u"CodCliente"));
    ui::Forms::instance().ShowAfresh(u"frmMoviFiadosConta"_s);
}

void frmMoviFiados::habilitaConta()
{
    ui::enableIf(!escolhida().isEmpty(), ui_->btnConta, u"Escolha uma ordem na lista"_s, ui_->Lista);
    disableUnlessExists(u"frmMoviFiadosConta"_s, {ui_->btnConta});
}

} // namespace finance
