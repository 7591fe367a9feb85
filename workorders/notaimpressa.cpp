#include "workorders/notaimpressa.h"

#include "core/funcoes.h"
#include "documents/folhas.h"

#include <array>
#include <span>

namespace workorders
{

using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

enum class Lado { Esquerda, Direita };

/// A column of the items on paper.
struct Coluna {
    QStringView titulo;
    int largura;
    QString ItemDaNota::*texto;
    Lado lado = Lado::Esquerda;
};

constexpr std::array colunasDePecas{
    Coluna{u"CÓDIGO", 6, &ItemDaNota::codigo},
    Coluna{u"DESCRIÇÃO", 36, &ItemDaNota::descricao},
    Coluna{u"CLASS. FISCAL", 20, &ItemDaNota::classFiscal},
    Coluna{u"S.T.", 4, &ItemDaNota::sitTrib},
    Coluna{u"UNIDADE", 7, &ItemDaNota::unidade},
    Coluna{u"QUANTIDADE", 10, &ItemDaNota::quantidade, Lado::Direita},
    Coluna{u"V. UNIT.", 12, &ItemDaNota::valorUnit, Lado::Direita},
    Coluna{u"V. TOTAL", 12, &ItemDaNota::valorTotal, Lado::Direita},
    Coluna{u"ICMS", 5, &ItemDaNota::icms, Lado::Direita},
};

constexpr std::array colunasDeServicos{
    Coluna{u"QUANTIDADE", 10, &ItemDaNota::quantidade, Lado::Direita},
    Coluna{u"UNIDADE", 7, &ItemDaNota::unidade},
    Coluna{u"ESPECIFICAÇÃO", 51, &ItemDaNota::descricao},
    Coluna{u"V. UNIT.", 12, &ItemDaNota::valorUnit, Lado::Direita},
    Coluna{u"V. TOTAL", 12, &ItemDaNota::valorTotal, Lado::Direita},
};

/// What the two notes differ in. The parts have so many columns that they need small letters.
struct Modelo {
    QStringView titulo;
    QStringView operacao;
    QStringView cfop; ///< "" for none
    QStringView total;
    std::span<const Coluna> colunas;
    double tamanho;
};

constexpr Modelo notaDePecas{.titulo = u"NOTA DE PEÇAS Nº ",
                             .operacao = u"VENDAS",
                             .cfop = u"5102",
                             .total = u"VALOR TOTAL DAS PEÇAS",
                             .colunas = colunasDePecas,
                             .tamanho = 8};
constexpr Modelo notaDeServicos{.titulo = u"NOTA DE SERVIÇOS Nº ",
                                .operacao = u"SERVIÇOS",
                                .cfop = {},
                                .total = u"VALOR TOTAL DOS SERVIÇOS",
                                .colunas = colunasDeServicos,
                                .tamanho = 10};

const Modelo &modeloDe(TipoNota tipo)
{
    return tipo == TipoNota::Pecas ? notaDePecas : notaDeServicos;
}

QString noLado(const Coluna &coluna, const QString &texto)
{
    return coluna.lado == Lado::Direita ? AlinhaDireita(texto, coluna.largura) : AlinhaEsquerda(texto, coluna.largura);
}

QString titulos(std::span<const Coluna> colunas)
{
    QStringList textos;
    for (const Coluna &coluna : colunas) {
        textos << noLado(coluna, coluna.titulo.toString());
    }
    return textos.join(u' ');
}

QString linha(std::span<const Coluna> colunas, const ItemDaNota &item)
{
    QStringList textos;
    for (const Coluna &coluna : colunas) {
        textos << noLado(coluna, item.*coluna.texto);
    }
    return textos.join(u' ');
}

QString comNumero(const ClienteDaNota &cliente)
{
    return cliente.numero.isEmpty() ? cliente.endereco : cliente.endereco + u", "_s + cliente.numero;
}

Cabecalho cabecalhoDaOperacao(const Modelo &modelo)
{
    const QString data = Hoje();
    Cabecalho linhas{DoisCampos(u"NATUREZA DA OPERAÇÃO: "_s, modelo.operacao.toString(), u" DATA.........: "_s, data)};
    if (!modelo.cfop.isEmpty()) {
        linhas << UmCampo(u"CFOP................: "_s, modelo.cfop.toString());
    }
    return linhas;
}

Cabecalho cabecalhoDoCliente(const ClienteDaNota &cliente)
{
    return {
        UmCampo(u"CÓD. / NOME CLIENTE.: "_s, cliente.codigo + u" - "_s + cliente.nome),
        DoisCampos(u"CPF / CNPJ..........: "_s, cliente.cpf, u" RG / I.E.....: "_s, cliente.rg),
        UmCampo(u"ENDEREÇO............: "_s, comNumero(cliente)),
        DoisCampos(u"BAIRRO..............: "_s, cliente.bairro, u" CEP..........: "_s, cliente.cep),
        DoisCampos(u"CIDADE..............: "_s, cliente.cidade, u" ESTADO.......: "_s, cliente.estado),
        UmCampo(u"FONE 1..............: "_s, cliente.fone1),
    };
}

void imprimeTitulos(printer::Surface &saida, const Modelo &modelo)
{
    DefineFonte(saida, modelo.tamanho, true, true);
    saida.Print(titulos(modelo.colunas));
    DefineFonte(saida, modelo.tamanho);
}

/// A header of very many orders leaves less room: what does not fit goes on a further sheet.
void viraSeCheia(Folhas &folhas, const Modelo &modelo, int linhas)
{
    if (!folhas.cabe(linhas)) {
        folhas.vira();
        imprimeTitulos(folhas.saida(), modelo);
    }
}

void imprimeTotal(Folhas &folhas, const Modelo &modelo, const QString &total)
{
    viraSeCheia(folhas, modelo, 2);
    const QString texto = linha(modelo.colunas, {.descricao = modelo.total.toString(), .valorTotal = total});
    DefineFonte(folhas.saida(), modelo.tamanho, false, true);
    folhas.saida().Print(QString(texto.size(), u' '));
    DefineFonte(folhas.saida(), modelo.tamanho, true);
    folhas.saida().Print(texto);
}

void imprimeItens(Folhas &folhas, const Modelo &modelo, const NotaImpressa &nota)
{
    imprimeTitulos(folhas.saida(), modelo);
    for (const ItemDaNota &item : nota.itens) {
        viraSeCheia(folhas, modelo, 1);
        folhas.saida().Print(linha(modelo.colunas, item));
    }
    imprimeTotal(folhas, modelo, nota.total);
}

} // namespace

void ImprimeNota(const NotaImpressa &nota, printer::Surface &saida)
{
    const Modelo &modelo = modeloDe(nota.tipo);
    const Documento documento{.titulo = modelo.titulo + nota.numero,
                              .cabecalho = cabecalhoDaOperacao(modelo) + cabecalhoDoCliente(nota.cliente) +
                                           CabecalhoEmLinhas(u"O.S. / PLACAS.......: "_s, nota.ordens.join(u", "_s)),
                              .secoes = {}};
    Folhas folhas(saida, documento);
    folhas.abre();
    imprimeItens(folhas, modelo, nota);
    folhas.fecha();
    saida.EndDoc();
}

} // namespace workorders
