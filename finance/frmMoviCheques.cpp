#include "finance/frmMoviCheques.h"

#include "ui_frmMoviCheques.h"

#include "core/banco.h"
#include "core/financas.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/modulo.h"
#include "finance/compensacao.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"

#include <array>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

bool temOrdem(const dao::Recordset &linha)
{
    const runtime::Value codOs = linha.value(u"CodOs");
    return !runtime::IsNull(codOs) && runtime::CLng(codOs) != 0;
}

int iconeDaLinha(const dao::Recordset &linha)
{
    return temOrdem(linha) ? 1 : 0;
}

QString tagDaLinha(const dao::Recordset &linha)
{
    return temOrdem(linha) ? NuloParaVazio(linha.value(u"CodOs")) : QString();
}

constexpr std::array colunas{
    ColunaLista{u"", 280, u"Codigo", comoCodigo},
    ColunaLista{u"Cód. O.S.", 950, u"CodOs", comoCodigo},
    ColunaLista{u"Data", 1250, u"Data", comoData},
    ColunaLista{u"Banco", 2500, u"Banco", comoEsta},
    ColunaLista{u"Conta", 1750, u"Conta", comoEsta},
    ColunaLista{u"Número", 1000, u"Numero", comoEsta},
    ColunaLista{u"Valor", 1250, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1250, u"Vencimento", comoData},
    ColunaLista{u"Pago", 620, u"Pago", comoSimNao},
    ColunaLista{u"Observações", 3000, u"Observacoes", comoEsta},
};
constexpr std::array somasDosCheques{Soma{u"Valor"}, Soma{u"Valor", EstaPago}, Soma{u"Valor", NaoEstaPago}};
constexpr std::array<QStringView, 5> semCheques{u"", u"", u"", u"Registro Não Localizado", u" "};

constexpr std::array tabelas{TabelaMovimento{
    .tabela = u"Cheques",
    .consulta = u"SELECT * FROM Cheques WHERE Vencimento BETWEEN ",
    .consultaFim = u" ORDER BY Data, Codigo",
    .lista =
        {.colunas = colunas, .icone = iconeDaLinha, .tag = tagDaLinha, .somas = somasDosCheques, .vazia = semCheques},
}};

/// A cheque that is changed counts as entered on that day.
std::optional<runtime::Value> diaDaGravacao(const QString & /*texto*/, Gravacao /*gravacao*/)
{
    return Hoje();
}

constexpr std::array campos{
    Campo{.controle = {}, .coluna = u"Data", .grava = diaDaGravacao},
    Campo{.controle = u"txtBanco", .coluna = u"Banco", .grava = ouNulo, .lista = ListaCombo::Bancos},
    Campo{.controle = u"txtConta", .coluna = u"Conta", .grava = ouNulo},
    Campo{.controle = u"txtNumCheque", .coluna = u"Numero", .grava = ouNulo},
    Campo{.controle = u"txtValor", .coluna = u"Valor", .grava = comoTexto, .mascara = TipoMascara::Valor},
    Campo{
        .controle = u"txtData", .coluna = u"Vencimento", .grava = comoTexto, .data = RegrasDaData{.soDigitos = false}},
    Campo{.controle = u"txtObs", .coluna = u"Observacoes", .grava = ouNulo},
};

constexpr std::array verificacoes{
    Verificacao{u"txtValor", numerico, u"Valor inválido"},
    Verificacao{u"txtData", dataValida, u"Data de Vencimento inválida"},
};

constexpr Movimento movimento{
    .janela = u"frmMoviCheques",
    .titulo = u" - [Relação de Cheques]",
    .tabelas = tabelas,
    .campos = campos,
    .verificacoes = verificacoes,
    .periodo = Periodo{.diasAntes = 15, .diasDepois = 15},
    .localizaAntesDeConferir = true,
    .semCodigo = u"Código Inválido",
    .teclaP = true,
};

} // namespace

frmMoviCheques::frmMoviCheques() : JanelaMovimento(movimento), ui_(std::make_unique<Ui::frmMoviCheques>())
{
    ui_->setupUi(this);
    ligaMovimento();
}

frmMoviCheques::~frmMoviCheques() = default;

/// The whole window is emptied behind it, the row clicked last included.
void frmMoviCheques::inclui()
{
    IncluiCheque({.codOs = u"0"_s,
                  .banco = ui_->txtBanco->currentText(),
                  .conta = ui_->txtConta->text(),
                  .numero = ui_->txtNumCheque->text(),
                  .valor = ui_->txtValor->text(),
                  .vencimento = ui_->txtData->text(),
                  .observacoes = ui_->txtObs->text()});
    LimpaForm(*this);
}

void frmMoviCheques::depoisDePreencher(const Somas &somas, bool /*vazia*/)
{
    const std::array valores{ui_->lblTotal, ui_->lblCompensado, ui_->lblCompensar};
    for (std::size_t i = 0; i < valores.size(); ++i) {
        valores[i]->setText(runtime::Format(somas[i], mascaraValor));
    }
}

void frmMoviCheques::teclaP(const ui::ListItem &linha)
{
    const auto cheque = AlternaCheque(linha.text());
    if (!cheque) {
        return;
    }
    if (ui::Confirm(u"Lançar Recebimento do Cheque no Livro Caixa"_s, NomeEmpresa)) {
        LancaCheque(*cheque);
    }
    preenche();
}

} // namespace finance
