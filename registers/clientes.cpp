#include "registers/contato.h"
#include "registers/registro.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "platform/dao/recordset.h"

#include <array>

/// The register of customers.
namespace registers
{

using namespace runtime;
using namespace core;

namespace
{

/// The most characters of a person's document: a CPF has 11 digits, a CNPJ 14.
constexpr qsizetype maiorDocumentoDePessoa = 11;

QString documento(const dao::Recordset &linha, int lugar)
{
    return NuloParaVazio(FormataDocumento(comoEsta(linha, lugar), false));
}

/// The entry of cboPessoa: nothing but the document's length tells a person from a company.
QString pessoa(const dao::Recordset &linha, int lugar)
{
    return QString::number(comoEsta(linha, lugar).size() > maiorDocumentoDePessoa ? 1 : 0);
}

/// A new customer's document is kept as typed, a changed one without its punctuation.
std::optional<Value> documentoGravado(const QString &texto, Gravacao gravacao)
{
    return gravacao == Gravacao::Inclusao ? ValorOuNulo(texto) : FormataDocumento(texto, true);
}

constexpr std::array aberturas{
    Abertura{modoProcuraClienteDoVeiculo, u" - [Consulta Código de Clientes]", u"txtTexto"},
    Abertura{modoProcuraClienteDoOrcamento, u" - [Consulta Código de Clientes]", u"txtTexto"},
    Abertura{modoProcuraClienteDaConta, u" - [Consulta Código de Clientes]", u"txtTexto"},
    Abertura{modoIncluiClienteDoVeiculo, u" - [Incluir Cliente]", u"txtNome"},
    Abertura{modoIncluiClienteDoOrcamento, u" - [Incluir Cliente]", u"txtNome"},
};

constexpr auto campos = junta(
    std::array{
        Campo{u"lblCodigo", u"Codigo", comoCodigo},
        Campo{u"lblDataCadastro", u"DataCadastro", comoData, hojeNaInclusao},
        Campo{u"txtNome", u"Nome", comoEsta, comoTexto},
    },
    camposDeContato,
    std::array{
        Campo{u"txtRG", u"RG", comoEsta, ouNulo},
        Campo{u"cboPessoa", u"CPF", pessoa},
        Campo{u"txtCPF", u"CPF", documento, documentoGravado, SoInteiros},
        Campo{u"txtDataNascimento", u"DataNascimento", comoData, ouNulo, SoInteiros, TipoMascara::Data},
        Campo{u"txtEmail", u"Email", comoEsta, minusculas},
        Campo{u"txtLimite", u"LimiteCredito", comoValor, ouNulo, SoDecimais, TipoMascara::Valor},
        Campo{u"txtObservacoes", u"Observacoes", comoEsta, ouNulo},
    });

constexpr std::array verificacoes{
    Verificacao{u"txtNome", naoVazio, u"Nome Inválido"},
    Verificacao{u"txtDataNascimento", dataOuVazia, u"Data de Nascimento Inválida"},
    Verificacao{u"txtEndereco", naoVazio, u"Endereço Inválido"},
    Verificacao{u"txtNumero", numerico, u"Número do Endereço Inválido"},
    Verificacao{u"txtLimite", numericoOuVazio, u"Limite de Crédito Inválido"},
};

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo, Qt::AlignRight},
    ColunaLista{u"Nome Cliente", 3700, u"Nome", comoEsta},
    ColunaLista{u"Endereço", 2000, u"Endereco", comoEsta},
    ColunaLista{u"Número", 1000, u"Numero", comoEsta, Qt::AlignRight},
    ColunaLista{u"Bairro", 1500, u"Bairro", comoEsta},
    ColunaLista{u"Cidade", 1500, u"Cidade", comoEsta},
    ColunaLista{u"Fone 1", 2000, u"Fone1", comoEsta},
    ColunaLista{u"Fone 2", 2000, u"Fone2", comoEsta},
    ColunaLista{u"Celular", 2000, u"Celular", comoEsta},
    ColunaLista{u"CPF", 1800, u"CPF", comoEsta},
    ColunaLista{u"E-mail", 3500, u"Email", comoEsta},
};

/// The combo lacks the entries "RG" and "Data Nasc.": its last two search what stands at their place here, and the last
/// two rows are never reached.
constexpr auto pesquisas = junta(pesquisasDeContato, std::array{
                                                         Pesquisa{u"CPF/CNPJ", u"RG LIKE '*", Comparacao::Contem},
                                                         Pesquisa{u"E-mail", u"CPF LIKE '*", Comparacao::Contem},
                                                         Pesquisa{u"", u"DataNascimento = ", Comparacao::Data},
                                                         Pesquisa{u"", u"Email LIKE '*", Comparacao::Contem},
                                                     });

constexpr std::array excecoesLocaliza{
    OutraMostra{u"cboPessoa", nullptr},
    OutraMostra{u"txtCPF", comoEsta},
};

constexpr std::array<QStringView, 1> exclusoes{u"DELETE * FROM Clientes WHERE codigo = "};

constexpr std::array devolucoes{
    Devolucao{modoProcuraClienteDoVeiculo, u"frmCadaVeiculos", u"txtCodCliente"},
    Devolucao{modoProcuraClienteDoOrcamento, u"frmOSOrcaNovo", u"txtCodCliente"},
    Devolucao{modoProcuraClienteDoCadastroRapido, u"frmCadaFast", u"txtCodCliente"},
    Devolucao{modoProcuraClienteDoPagamento, u"frmOSFormaPagto", u"txtCodCliente"},
    Devolucao{modoProcuraClienteDaConta, u"frmMoviFiadosConta", u"lblCodigo"},
    Devolucao{modoProcuraClienteDaConta, u"frmMoviFiadosConta", u"lblFone", u"txtFone1"},
    Devolucao{modoProcuraClienteDaConta, u"frmMoviFiadosConta", u"lblNome", u"txtNome", u"txtData"},
};

/// An order that waits for a new vehicle keeps its mode: a customer added on the way goes to the vehicle.
constexpr std::array devolucoesInclusao{
    Devolucao{modoIncluiClienteDoVeiculo, u"frmCadaVeiculos", u"txtCodCliente"},
    Devolucao{modoIncluiVeiculo, u"frmCadaVeiculos", u"txtCodCliente"},
    Devolucao{modoIncluiClienteDoOrcamento, u"frmOSOrcaNovo", u"txtCodCliente"},
};

constexpr Registro registro{
    .janela = u"frmCadaCliente",
    .tabela = u"Clientes",
    .titulo = u" - [Cadastro de Clientes]",
    .aberturas = aberturas,
    .campos = campos,
    .verificacoes = verificacoes,
    .lista = {.colunas = colunas},
    .pesquisas = pesquisas,
    .pesquisaInicial = 2,
    .pesquisa = {.antes = u"SELECT * FROM Clientes WHERE ", .depois = u" ORDER By Nome"},
    .consultaTodos = u"SELECT * FROM Clientes ORDER BY Nome",
    .consultaLinha = u"SELECT * FROM Clientes WHERE Codigo = ",
    .excecoesLocaliza = excecoesLocaliza,
    .exclusoes = exclusoes,
    .devolucoes = devolucoes,
    .devolucoesInclusao = devolucoesInclusao,
};

} // namespace

const Registro &registroClientes()
{
    return registro;
}

} // namespace registers
