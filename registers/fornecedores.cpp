#include "registers/contato.h"
#include "registers/registro.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"

#include <array>

/// The register of suppliers.
namespace registers
{

using namespace runtime;
using namespace core;

namespace
{

/// The column has no room for a punctuated CNPJ.
std::optional<Value> soDigitos(const QString &texto, Gravacao /*gravacao*/)
{
    return ValorOuNulo(NuloParaVazio(FormataDocumento(texto, true)));
}

constexpr std::array aberturas{
    Abertura{modoProcuraFornecedorDaNota, u" - [Consulta de Código de Fornecedor]", u"txtTexto"},
    Abertura{modoProcuraFornecedorDeixado, u" - [Consulta de Código de Fornecedor]", u"txtTexto"},
};

constexpr auto campos = junta(
    std::array{
        Campo{u"lblCodigo", u"Codigo", comoCodigo},
        Campo{u"lblDataCadastro", u"DataCadastro", comoData, hojeNaInclusao},
        Campo{u"txtNome", u"Nome", comoEsta, comoTexto},
        Campo{u"txtContato", u"Contato", comoEsta, ouNulo},
    },
    camposDeContato,
    std::array{
        Campo{u"txtCPF", u"CNPJ", comoEsta, soDigitos, SoInteiros},
        Campo{u"txtEmail", u"Email", comoEsta, minusculas},
        Campo{u"txtObservacoes", u"Observacoes", comoEsta, ouNulo},
    });

constexpr std::array verificacoes{Verificacao{u"txtNome", naoVazio, u"Nome Inválido"}};

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo, Qt::AlignRight},
    ColunaLista{u"Nome Fornecedor", 3700, u"Nome", comoEsta},
    ColunaLista{u"Contato", 2000, u"Contato", comoEsta},
    ColunaLista{u"Fone 1", 2000, u"Fone1", comoEsta},
    ColunaLista{u"Fone 2", 2000, u"Fone2", comoEsta},
    ColunaLista{u"Celular", 2000, u"Celular", comoEsta},
};

constexpr auto pesquisas = junta(pesquisasDeContato, std::array{
                                                         Pesquisa{u"CNPJ", u"CnpJ LIKE '*", Comparacao::Contem},
                                                         Pesquisa{u"E-mail", u"Email LIKE '*", Comparacao::Contem},
                                                     });

constexpr std::array<QStringView, 1> exclusoes{u"DELETE * FROM Fornecedores WHERE codigo = "};

constexpr std::array devolucoes{
    Devolucao{modoProcuraFornecedorDaNota, u"frmMoviEntradaPeca", u"txtCodFornecedor"},
    Devolucao{modoProcuraFornecedorDeixado, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"},
    Devolucao{modoProcuraFornecedorDoRelatorio, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"},
    Devolucao{modoProcuraFornecedorDaConsulta, u"frmRelaSelecaoNotasEntradas", u"txtCodForn"},
};

constexpr std::array devolucoesInclusao{
    Devolucao{modoIncluiFornecedorDaNota, u"frmMoviEntradaPeca", u"txtCodFornecedor"}};

constexpr Registro registro{
    .janela = u"frmCadaFornecedor",
    .tabela = u"Fornecedores",
    .titulo = u" - [Cadastro de Fornecedores]",
    .aberturas = aberturas,
    .campos = campos,
    .verificacoes = verificacoes,
    .lista = {.colunas = colunas},
    .pesquisas = pesquisas,
    .pesquisaInicial = 2,
    .pesquisa = {.antes = u"SELECT * FROM Fornecedores WHERE ", .depois = u" ORDER By Nome"},
    .consultaTodos = u"SELECT * FROM Fornecedores ORDER BY Nome",
    .consultaLinha = u"SELECT * FROM Fornecedores WHERE Codigo = ",
    .exclusoes = exclusoes,
    .devolucoes = devolucoes,
    .devolucoesInclusao = devolucoesInclusao,
};

} // namespace

const Registro &registroFornecedores()
{
    return registro;
}

} // namespace registers
