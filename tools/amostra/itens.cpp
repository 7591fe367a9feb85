#include "tools/amostra/cadastros.h"

#include "core/funcoes.h"
#include "registers/pecas.h"
#include "tools/amostra/catalogo.h"
#include "tools/amostra/documentos.h"
#include "tools/amostra/sorteio.h"
#include "tools/amostra/textos.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

QString simNao(bool sim)
{
    return sim ? u"-1"_s : u"0"_s;
}

/// A tenth more or less, in steps of ten cents.
int emTorno(Sorteio &sorteio, int centavos)
{
    const int variado = centavos * sorteio.entre(90, 110) / 100;
    return variado - variado % 10;
}

/// The maker's own number. Letters in front keep it from being taken for a code of the register.
QString codigoExterno(Sorteio &sorteio)
{
    const QString fabricante = sorteio.um(fabricantes()).toString();
    return fabricante + Digitos(sorteio.abaixo(100'000), 5);
}

struct NovoItem {
    const ItemCatalogo *catalogo;
    QStringView aplicacao;
    bool servico;
};

Textos textosDoItem(Sorteio &sorteio, const NovoItem &novo, const Item &item)
{
    const bool servico = novo.servico;
    const QString externo = servico ? QString() : codigoExterno(sorteio);
    Textos textos{
        {u"txtNome", item.nome},          {u"cboMarca", novo.aplicacao.toString()},  {u"optPeca", simNao(!servico)},
        {u"optServico", simNao(servico)}, {u"cboUnidade", QString::number(item.um)}, {u"txtCusto", Reais(item.custo)},
        {u"txtVenda", Reais(item.preco)}, {u"optSim", simNao(item.estoque)},         {u"optNao", simNao(!item.estoque)},
        {u"txtCodExterno", externo},
    };
    if (item.estoque) {
        textos.acrescenta(u"txtEstoque", core::FormataQuantidade(item.minimo, item.um));
        textos.acrescenta(u"txtEstoqueAtual", core::FormataQuantidade(item.atual, item.um));
    }
    return textos;
}

/// A part sells at half again to twice its cost. One in twelve is bought only when it is asked for.
Item incluiItem(Sorteio &sorteio, const NovoItem &novo)
{
    Item item;
    item.nome = novo.catalogo->nome.toString();
    item.um = novo.catalogo->um;
    const int custo = emTorno(sorteio, novo.catalogo->custo); // of a service: the labour
    const int margem = novo.servico ? 100 : sorteio.entre(150, 200);
    item.preco = custo * margem / 100 / 10 * 10;
    item.estoque = !novo.servico && sorteio.entre(1, 12) > 1;
    item.minimo = sorteio.entre(5, 10); // more than one order takes
    item.atual = item.minimo + sorteio.entre(2, 15);
    item.custo = novo.servico ? 0 : custo;
    item.codigo = registers::IncluiPeca(textosDoItem(sorteio, novo, item));
    return item;
}

std::vector<Item> incluiTabela(Sorteio &sorteio, std::span<const ItemCatalogo> tabela, bool servico)
{
    std::vector<Item> itens;
    for (const ItemCatalogo &catalogo : tabela) {
        itens.push_back(incluiItem(sorteio, {&catalogo, todosOsModelos, servico}));
    }
    return itens;
}

/// A few hundred parts, more for a large workshop: pairs of part and model, drawn without repetition.
std::size_t quantasPecasDeModelo(int clientes)
{
    return 220 + static_cast<std::size_t>(clientes) / 100;
}

int incluiPecasDosModelos(Sorteio &sorteio, Oficina &oficina)
{
    const std::size_t porModelo = pecasDeModelo().size();
    std::vector<std::size_t> pares(porModelo * modelos().size());
    for (std::size_t par = 0; par < pares.size(); ++par) {
        pares[par] = par;
    }
    sorteio.embaralha(pares);
    pares.resize(std::min(pares.size(), quantasPecasDeModelo(oficina.tamanho.clientes)));
    oficina.pecasDoModelo.resize(modelos().size());
    for (const std::size_t par : pares) {
        const std::size_t modelo = par / porModelo;
        oficina.pecasDoModelo[modelo].push_back(
            incluiItem(sorteio, {&pecasDeModelo()[par % porModelo], modelos()[modelo].nome, false}));
    }
    return static_cast<int>(pares.size());
}

} // namespace

void IncluiItens(Oficina &oficina, Resumo &resumo)
{
    Sorteio sorteio(oficina.tamanho.semente, sobreItens);
    oficina.servicos = incluiTabela(sorteio, servicos(), true);
    oficina.pecasGerais = incluiTabela(sorteio, pecasGerais(), false);
    resumo.servicos = static_cast<int>(servicos().size());
    resumo.pecas = static_cast<int>(pecasGerais().size()) + incluiPecasDosModelos(sorteio, oficina);
}

} // namespace amostra
