#include "registers/registro.h"

#include "core/funcoes.h"
#include "core/modos.h"
#include "platform/runtime/runtime.h"

#include <array>

/// The register of vehicles. A vehicle whose customer is gone shows in none of its lists: they join the two tables.
namespace registers
{

using namespace runtime;
using namespace core;

namespace
{

std::optional<Value> comoLongo(const QString &texto, Gravacao /*gravacao*/)
{
    return CLng(texto);
}

constexpr std::array aberturas{
    Abertura{modoProcuraVeiculo, u" - [Consulta Código de Veículos]", u"txtTexto"},
    Abertura{modoIncluiVeiculo, u" - [Incluir Veículo]", u"txtCodCliente"},
};

constexpr std::array campos{
    Campo{u"lblCodigo", u"Codigo", comoCodigo},
    Campo{u"txtCodCliente", u"CodCliente", comoCodigo, comoLongo, SoInteiros},
    Campo{u"lblNomeCliente", u"Nome", comoEsta},
    Campo{.controle = u"cboMarca",
          .coluna = u"MarcaModelo",
          .mostra = comoEsta,
          .grava = comoTexto,
          .lista = ListaCombo::MarcaModelo},
    Campo{u"txtAno", u"Ano", comoEsta, ouNulo, nullptr, TipoMascara::Ano},
    Campo{u"txtCor", u"Cor", comoEsta, ouNulo},
    Campo{u"txtPlaca", u"Placas", comoEsta, ouNulo},
    Campo{u"txtCombustivel", u"Combustivel", comoEsta, ouNulo},
    Campo{u"txtObservacoes", u"Observacoes", comoEsta, ouNulo},
    Campo{u"txtChassi", u"Chassi", comoEsta, ouNulo},
};

constexpr std::array verificacoes{
    Verificacao{u"txtCodCliente", naoVazio, u"Código do Cliente Inválido"},
    Verificacao{u"lblNomeCliente", naoVazio, u"Código do Cliente Inválido", u"txtCodCliente"},
    Verificacao{u"cboMarca", naoVazio, u"Marca/Modelo Inválido"},
};

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo, Qt::AlignRight},
    ColunaLista{u"Nome Cliente", 3700, u"Nome", comoEsta},
    ColunaLista{u"Marca/Modelo", 2500, u"MarcaModelo", comoEsta},
    ColunaLista{u"Ano", 1500, u"Ano", comoEsta},
    ColunaLista{u"Cor", 1500, u"Cor", comoEsta},
    ColunaLista{u"Placas", 1500, u"Placas", comoEsta},
    ColunaLista{u"Combustível", 2000, u"Combustivel", comoEsta},
    ColunaLista{u"Observações", 3500, u"Observacoes", comoEsta},
};

constexpr std::array pesquisas{
    Pesquisa{u"Nome do Cliente", u"Clientes.Nome LIKE '*", Comparacao::Contem},
    Pesquisa{u"Marca/Modelo", u"Veiculos.MarcaModelo LIKE '*", Comparacao::Contem},
    Pesquisa{u"Placa", u"Veiculos.Placas LIKE '*", Comparacao::Contem},
    Pesquisa{u"Ano", u"Veiculos.Ano LIKE '*", Comparacao::Contem},
    Pesquisa{u"Cor", u"Veiculos.Cor LIKE '*", Comparacao::Contem},
    Pesquisa{u"Chassi", u"Veiculos.Chassi LIKE '*", Comparacao::Contem},
};

constexpr std::array<QStringView, 1> exclusoes{u"DELETE * FROM Veiculos WHERE codigo = "};

constexpr std::array devolucoes{Devolucao{modoProcuraVeiculo, u"frmOSAbre", u"txtCodVeiculo"}};

constexpr std::array devolucoesInclusao{Devolucao{modoIncluiVeiculo, u"frmOSAbre", u"txtCodVeiculo"}};

constexpr Registro registro{
    .janela = u"frmCadaVeiculos",
    .tabela = u"Veiculos",
    .titulo = u" - [Cadastro de Veículos]",
    .aberturas = aberturas,
    .campos = campos,
    .verificacoes = verificacoes,
    .lista = {.colunas = colunas},
    .pesquisas = pesquisas,
    .pesquisa = {.antes = u"select Veiculos.Codigo, Clientes.Nome, Veiculos.MarcaModelo, Veiculos.Ano, Veiculos.Cor, "
                          u"Veiculos.Placas, Veiculos.Combustivel, Veiculos.Observacoes from Veiculos INNER JOIN "
                          u"Clientes On Clientes.Codigo=Veiculos.Codcliente Where ",
                 .textoVazioPesquisa = true,
                 .mensagemErro = u"Erro de Pesquisa",
                 .mensagemVazia = u"Pesquisa sem Resultado!"},
    .consultaTodos = u"select Veiculos.Codigo, Clientes.Nome, Veiculos.MarcaModelo, Veiculos.Ano, Veiculos.Cor, "
                     u"Veiculos.Placas, Veiculos.Combustivel, Veiculos.Observacoes from Veiculos INNER JOIN Clientes "
                     u"On Clientes.Codigo=Veiculos.Codcliente ORDER By Veiculos.MarcaModelo, Clientes.Nome",
    .consultaLinha = u"select Veiculos.Codigo, Veiculos.CodCliente, Clientes.Nome, Veiculos.MarcaModelo, Veiculos.Ano, "
                     u"Veiculos.Cor, Veiculos.Placas, Veiculos.Combustivel, Veiculos.Observacoes, Veiculos.Chassi from "
                     u"Veiculos INNER JOIN Clientes On Clientes.Codigo=Veiculos.CodCliente WHERE Veiculos.Codigo = ",
    // The chassis number is not asked for: a vehicle found in the list leaves the one on the screen.
    .consultaLocaliza = u"select Veiculos.Codigo, Veiculos.CodCliente, Clientes.Nome, Veiculos.MarcaModelo, "
                        u"Veiculos.Ano, Veiculos.Cor, Veiculos.Placas, Veiculos.Combustivel, Veiculos.Observacoes from "
                        u"Veiculos INNER JOIN Clientes On Clientes.Codigo=Veiculos.CodCliente WHERE Veiculos.Codigo = ",
    .colunaLocaliza = 3,
    .exclusoes = exclusoes,
    .localizaAntesDeConferir = false,
    .naoLocalizado = u"Código Não Localizado",
    .devolucoes = devolucoes,
    .devolucoesInclusao = devolucoesInclusao,
};

} // namespace

const Registro &registroVeiculos()
{
    return registro;
}

} // namespace registers
