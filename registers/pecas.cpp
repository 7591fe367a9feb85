#include "registers/pecas.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/razao.h"
#include "platform/dao/recordset.h"
#include "platform/runtime/runtime.h"

#include <array>

/// The register of parts and services. Stock is no column of theirs: it is the balance of their ledger's newest row.
namespace registers
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype maiorMarca = 200;

bool desligada(const QString &texto)
{
    return texto == u"0";
}

// --- shown

QString opcaoPeca(const dao::Recordset &linha, int lugar)
{
    return comoEsta(linha, lugar) == u"P" ? u"-1"_s : u"0"_s;
}

QString opcaoControla(const dao::Recordset &linha, int lugar)
{
    return Verdadeiro(linha.value(lugar)) ? u"-1"_s : u"0"_s;
}

QString quantidadeOuBranco(const dao::Recordset &linha, int lugar)
{
    return IsNull(linha.value(lugar)) ? u" "_s : comoQuantidade(linha, lugar);
}

// --- written

std::optional<Value> letraDoTipo(const QString &texto, Gravacao /*gravacao*/)
{
    return QString(desligada(texto) ? u"S"_s : u"P"_s);
}

std::optional<Value> comoInteiro(const QString &texto, Gravacao /*gravacao*/)
{
    return CInt(texto);
}

/// The box is empty where no stock is kept: a new part then has no least stock, a changed one has 0.
std::optional<Value> estoqueMinimo(const QString &texto, Gravacao gravacao)
{
    if (!texto.isEmpty()) {
        return texto;
    }
    return gravacao == Gravacao::Inclusao ? std::optional<Value>() : std::optional<Value>(qint16{0});
}

// --- checked

bool marcaAceita(const QString &texto)
{
    return !texto.isEmpty() && texto.size() <= maiorMarca;
}

constexpr std::array aberturas{
    Abertura{modoProcuraPeca, u" - [Consulta Código de Peças]", u"txtTexto"},
    Abertura{modoIncluiPeca, u" - [Incluir Peça/Serviço]", u"txtNome"},
    Abertura{modoIncluiPecaDaNota, u" - [Incluir Peça/Serviço]", u"txtNome"},
};

constexpr std::array campos{
    Campo{u"lblCodigo", u"Codigo", comoCodigo},
    Campo{u"txtNome", u"Nome", comoEsta, comoTexto},
    Campo{.controle = u"cboMarca",
          .coluna = u"MarcaModelo",
          .mostra = comoEsta,
          .grava = comoTexto,
          .lista = ListaCombo::MarcaModelo,
          .aceitaMaior = true}, // "Marca Inválida"
    Campo{u"optPeca", u"PS", opcaoPeca, letraDoTipo},
    Campo{u"cboUnidade", u"UM", comoEsta, comoInteiro},
    Campo{u"txtCusto", u"ValorCusto", comoValor, comoTexto, SoDecimais, TipoMascara::Valor},
    Campo{u"txtVenda", u"ValorVenda", comoValor, comoTexto, SoDecimais, TipoMascara::Valor},
    Campo{u"txtEstoque", u"EstoqueMinimo", comoQuantidade, estoqueMinimo, SoDecimais},
    Campo{u"optSim", u"ControlaEstoque", opcaoControla, comoInteiro},
    Campo{u"txtEstoqueAtual", u"Estoque", comoQuantidade, nullptr, SoDecimais},
    Campo{u"txtCodExterno", u"CodExterno", comoEsta, ouNulo},
    Campo{u"txtICMS", u"ICMS", comoEsta, ouNulo, SoInteiros},
    Campo{u"txtClass", u"ClassFiscal", comoEsta, ouNulo},
};

constexpr std::array verificacoes{
    Verificacao{u"txtNome", naoVazio, u"Nome Inválido"},
    Verificacao{u"cboMarca", marcaAceita, u"Marca Inválida"},
    Verificacao{u"txtCusto", numerico, u"Valor de Custo Inválido"},
    Verificacao{u"txtVenda", numerico, u"Valor de Venda Inválido"},
};

constexpr std::array colunas{
    ColunaLista{u"Código", 900, u"Codigo", comoCodigo, Qt::AlignRight},
    ColunaLista{u"Descrição Peça/Serviço", 3400, u"Nome", comoEsta},
    ColunaLista{u"Aplicação Marca/Modelo", 3400, u"MarcaModelo", comoEsta},
    ColunaLista{u"Peça/Serviço", 400, u"PS", comoEsta},
    ColunaLista{u"U.M.", 1000, u"UM", comoUnidade},
    ColunaLista{u"Valor Custo", 1500, u"ValorCusto", comoValor, Qt::AlignRight},
    ColunaLista{u"Valor de Venda", 1500, u"ValorVenda", comoValor, Qt::AlignRight},
    ColunaLista{u"Estoque Mínimo", 1500, u"EstoqueMinimo", quantidadeOuBranco, Qt::AlignRight},
    ColunaLista{u"Controlar Estoque", 1500, u"ControlaEstoque", comoSimNao},
};

constexpr std::array pesquisas{
    Pesquisa{u"Código", u"Codigo LIKE ", Comparacao::Igual},
    Pesquisa{u"Nome", u"Nome LIKE '*", Comparacao::Contem},
    Pesquisa{u"Cód. Externo", u"CodExterno LIKE '*", Comparacao::Contem},
};

constexpr std::array<QStringView, 2> exclusoes{u"DELETE * FROM Pecas WHERE codigo = ",
                                               u"DELETE * FROM Estoque WHERE codPeca = "};

/// Four windows open the picker, and the opening of orders gets the code whichever it was.
constexpr std::array devolucoes{
    Devolucao{modoProcuraPeca, u"frmOSAbre", u"txtCodPeca"},
    Devolucao{modoProcuraPecaDaNota, u"frmMoviEntradaPeca", u"txtCodPeca"},
    Devolucao{modoProcuraPecaDoEstoque, u"frmMoviEstoque", u"txtCodPeca"},
};

/// A part added for an order goes nowhere; the mode that does go there is one that others leave behind.
constexpr std::array devolucoesInclusao{
    Devolucao{modoIncluiPecaDeixado, u"frmOSAbre", u"txtCodPeca"},
    Devolucao{modoIncluiPecaDaNota, u"frmMoviEntradaPeca", u"txtCodPeca"},
    Devolucao{modoIncluiPecaDoEstoque, u"frmMoviEstoque", u"txtCodPeca"},
};

constexpr Registro registro{
    .janela = u"frmCadaPecas",
    .tabela = u"Pecas",
    .titulo = u" - [Cadastro de Peças/Serviços]",
    .aberturas = aberturas,
    .campos = campos,
    .verificacoes = verificacoes,
    .lista = {.colunas = colunas},
    .pesquisas = pesquisas,
    .pesquisaInicial = 1,
    .pesquisa = {.antes = u"SELECT * FROM pecas WHERE ", .depois = u" ORDER By PS, Nome, MarcaModelo"},
    .consultaTodos = u"SELECT * FROM pecas ORDER BY PS, Nome, MarcaModelo",
    .consultaLinha = u"SELECT pecas.codigo, pecas.nome, pecas.MarcaModelo, pecas.ps, pecas.UM, pecas.ValorCusto, "
                     u"pecas.ValorVenda, pecas.EstoqueMinimo, pecas.ControlaEstoque, estoque.ESTOQUE, "
                     u"pecas.codexterno, pecas.ICMS, pecas.ClassFiscal FROM pecas, estoque WHERE pecas.CODIGO = "
                     u"estoque.CodPeca AND pecas.CODIGO = ",
    .consultaLinhaFim = u" ORDER BY Estoque.Codigo DESC",
    .consultaSegunda = u"SELECT * FROM Pecas WHERE Codigo = ",
    .consultaLocaliza = u"SELECT pecas.CODIGO, pecas.NOME, pecas.UM, pecas.VALORCUSTO, pecas.VALORVENDA, "
                        u"pecas.ESTOQUEMINIMO, estoque.ESTOQUE, pecas.CodExterno FROM pecas, ESTOQUE WHERE "
                        u"pecas.CODIGO = estoque.CODPeca AND pecas.CODIGO = ",
    .exclusoes = exclusoes,
    .localizaAntesDeConferir = false,
    .devolucoes = devolucoes,
    .devolucoesInclusao = devolucoesInclusao,
};

} // namespace

const Registro &registroPecas()
{
    return registro;
}

qint32 IncluiPeca(const TextoDoControle &texto)
{
    const qint32 codigo = IncluiRegistro(registro, texto);
    const QString inicial = desligada(texto(u"optSim")) ? u"0"_s : texto(u"txtEstoqueAtual");
    AbreEstoque(codigo, u"ENTRADA INICIAL"_s, inicial);
    return codigo;
}

} // namespace registers
