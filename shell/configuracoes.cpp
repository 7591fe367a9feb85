#include "shell/configuracoes.h"

#include "core/caminhos.h"
#include "core/chavesjuntas.h"
#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "shell/frmMDI.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;
using core::Ajuste;
using core::Resposta;

namespace shell
{
namespace
{

constexpr int arquivoAusente = 3024;

const QString secao = u"Config"_s;

void mudaNome(const QString &nome)
{
    core::NomeEmpresa = nome;
    ui::setBoxTitle(nome);
    principal().mostraTitulos();
}

void completaCombos(const QString &resposta)
{
    core::AutoCompletar = resposta == u"S";
}

/// The notices are offered the answer of the credit limit.
QString limiteDeCredito()
{
    return core::Config(u"PermiteLC"_s);
}

QString buscaPeloCEP()
{
    return core::Config(u"CEP"_s) == u"On" ? u"S"_s : u"N"_s;
}

void fechaCEP()
{
    if (core::DBCEP) {
        core::DBCEP->Close();
        core::DBCEP.reset();
    }
}

/// The place is fixed: `ArquivoCEP`, where the start looks, is not asked.
bool abreCEP()
{
    try {
        core::DBCEP = dao::DBEngine::OpenDatabase(core::caminho(core::App::Path() + u"\\DADOS\\CEP.MDB"_s), true);
        return true;
    } catch (const runtime::RuntimeError &erro) {
        const QString texto = erro.number() == arquivoAusente ? u"Banco de CEP´s não encontrado!"_s
                                                              : QString(u"Erro:\n"_s + erro.description());
        ui::MsgBox(texto, ui::Icon::Exclamation, core::NomeEmpresa);
        return false;
    }
}

bool gravaCEP(const QString &resposta)
{
    const bool ativa = resposta == u"S";
    const bool aberto = ativa && abreCEP();
    if (!ativa) {
        fechaCEP();
    }
    core::GravaINI(secao, u"CEP"_s, aberto ? u"On"_s : u"Off"_s, true);
    return aberto == ativa;
}

/// Without the sign of a zero.
QString parteInteira(const QString &numero)
{
    return runtime::CStr(std::trunc(runtime::CDbl(numero)) + 0.0);
}

/// A "S" counts with the days that it leads to.
bool gravaAvisoDeBackup(const QString &resposta)
{
    if (resposta == u"N") {
        core::GravaINI(secao, u"AvisaBackup"_s, resposta, true);
        return true;
    }
    const QString dias =
        ui::InputBox(u"Freqüência de Dias do Backup (Nº de Dias)"_s, core::NomeEmpresa, core::Config(u"BackupDias"_s));
    if (!core::NumeroValido(dias)) {
        return false;
    }
    core::GravaJuntas(secao, {{u"AvisaBackup"_s, resposta}, {u"BackupDias"_s, parteInteira(dias)}});
    return true;
}

constexpr auto ajustes = std::to_array<Ajuste>({
    {.item = u"itmConfigNome", .chave = u"Nome", .pergunta = u"Digite o Nome da Empresa", .depois = mudaNome},
    {.item = u"itmConfigEndereco", .chave = u"Endereco", .pergunta = u"Digite o Endereço da Empresa"},
    {.item = u"itmConfigBairro", .chave = u"Bairro", .pergunta = u"Digite o Bairro - Cidade - UF da Empresa"},
    {.item = u"itmConfigTelefone", .chave = u"Telefone", .pergunta = u"Digite o Telefone da Empresa"},
    {.item = u"itmConfigTaxaJuros",
     .chave = u"Juros",
     .pergunta = u"Digite o valor de juros (%) mensal para cálculo de parcelamento de ordens de serviços",
     .resposta = Resposta::Numero,
     .recusa = u"Você deve inserir uma taxa válida",
     .gravado = core::TaxaGravada},
    {.item = u"itmConfigDesconto",
     .chave = u"Desconto",
     .pergunta = u"Digite o valor de desconto (%) máximo permitido para ordens de serviços",
     .resposta = Resposta::Numero,
     .recusa = u"Você deve inserir uma porcentagem válida",
     .gravado = core::TaxaGravada},
    {.item = u"itmConfigBloquearLC",
     .chave = u"PermiteLC",
     .pergunta = u"Permitir o Fechamento de Ordens de Serviços com o Limite de Crédito do Cliente Esgotado? Digite:",
     .resposta = Resposta::SimNao},
    {.item = u"itmConfigCEP",
     .chave = u"CEP",
     .pergunta = u"Ativar a busca de endereços do banco de dados de CEP? Digite:",
     .resposta = Resposta::SimNao,
     .mostrado = buscaPeloCEP,
     .grava = gravaCEP},
    {.item = u"itmConfigAutoComplete",
     .chave = u"AutoComplete",
     .pergunta = u"Ativar Função Auto-Completar para as Caixas de Listagens Dinâmicas? Digite:",
     .resposta = Resposta::SimNao,
     .depois = completaCombos},
    {.item = u"itmConfigAvisaVencimentoContas",
     .chave = u"ExibeAviso",
     .pergunta =
         u"Avisar na abertura do programa Vencimentos de Contas à Pagar/Receber/Cheques/Pendências de Clientes? "
         u"Digite:",
     .resposta = Resposta::SimNao,
     .mostrado = limiteDeCredito},
    {.item = u"itmConfigAvisaBackup",
     .chave = u"AvisaBackup",
     .pergunta = u"Lembrar quando você deve realizar um backup do sistema",
     .resposta = Resposta::SimNao,
     .grava = gravaAvisoDeBackup},
    {.item = u"itmConfigLancarReg",
     .chave = u"LancarRegAutCRLivroCaixa",
     .pergunta = u"Lançar Automaticamente os Registros de baixa do Contas a Receber no Livro Caixa e Conta do Cliente? "
                 u"Digite:",
     .resposta = Resposta::SimNao},
    {.item = u"itmConfigCadastroAutomatico",
     .chave = u"PreencheCadastroAutomatico",
     .pergunta = u"Ativar Preenchimento Automático de Cadastros (aumenta desempenho) ? Digite:",
     .resposta = Resposta::SimNao},
    {.item = u"itmConfigLayoutOS",
     .chave = u"LayoutOS",
     .pergunta = u"Digite o Código do Layout de Impressão de Ordens de Serviços",
     .resposta = Resposta::Numero},
    {.item = u"itmConfigPrintFormaPagtoOs",
     .chave = u"PrintFormaPagto",
     .pergunta = u"Imprimir Formas de Pagamento nas Ordens de Serviços? Digite:",
     .resposta = Resposta::SimNao,
     .depois = completaCombos},
    {.item = u"itmConfigPersonalizacao",
     .chave = u"Personalizacao",
     .pergunta = u"Digite o Código de Personalização da Empresa"},
});

} // namespace

const Ajuste *ajusteDe(QStringView item)
{
    const auto *const achado = std::ranges::find(ajustes, item, &Ajuste::item);
    return achado == ajustes.end() ? nullptr : achado;
}

} // namespace shell
