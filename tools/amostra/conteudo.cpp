#include "tools/amostra/conteudo.h"

#include "core/funcoes.h"
#include "documents/itens.h"
#include "platform/runtime/runtime.h"
#include "tools/amostra/catalogo.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using documents::LinhaItem;

namespace amostra
{

namespace
{

constexpr int litros = 2;

double quantidade(Sorteio &sorteio, const Item &item)
{
    if (item.um == litros) {
        return sorteio.entre(1, 9) / 2.0;
    }
    return sorteio.chance(80) ? 1 : sorteio.entre(2, 4);
}

LinhaItem linha(const Item &item, const QString &tipo, double quanto)
{
    return LinhaDoItem(item, tipo, quanto, item.preco);
}

LinhaItem linhaAvulsa(Sorteio &sorteio)
{
    Item item;
    item.nome = sorteio.um(avulsos()).toString();
    item.preco = sorteio.entre(2, 40) * 500;
    return linha(item, u"A"_s, 1);
}

/// A part of this model, or one that fits all where the register has none for it.
const Item &pecaPara(const Veiculo &veiculo, const Oficina &oficina, Sorteio &sorteio)
{
    const auto &doModelo = oficina.pecasDoModelo[static_cast<std::size_t>(veiculo.modelo)];
    const auto &todas = doModelo.empty() || sorteio.chance(40) ? oficina.pecasGerais : doModelo;
    return sorteio.um(todas);
}

/// A code stands in an order once: the clerk raises the quantity instead.
void acrescenta(std::vector<LinhaItem> &itens, LinhaItem nova)
{
    const bool ha = std::ranges::any_of(itens, [&](const LinhaItem &item) { return item.codigo == nova.codigo; });
    if (!ha) {
        itens.push_back(std::move(nova));
    }
}

std::vector<LinhaItem> itensPara(const Veiculo &veiculo, const Oficina &oficina, Sorteio &sorteio)
{
    std::vector<LinhaItem> itens;
    for (int pecas = sorteio.entre(1, 5); pecas > 0; --pecas) {
        const Item &item = pecaPara(veiculo, oficina, sorteio);
        acrescenta(itens, linha(item, u"P"_s, quantidade(sorteio, item)));
    }
    for (int servicos = sorteio.entre(1, 3); servicos > 0; --servicos) {
        acrescenta(itens, linha(sorteio.um(oficina.servicos), u"S"_s, 1));
    }
    if (sorteio.chance(15)) {
        itens.push_back(linhaAvulsa(sorteio));
    }
    return itens;
}

QString servicosExecutados(const std::vector<LinhaItem> &itens)
{
    QStringList nomes;
    for (const LinhaItem &item : itens) {
        if (item.tipo == u"S") {
            nomes.append(item.descricao);
        }
    }
    return nomes.join(u", "_s);
}

/// Each vehicle goes on from order to order, some thirty kilometres a day.
QString quilometragem(const Veiculo &veiculo, const Oficina &oficina)
{
    const qint64 primeira = 5'000 + qint64{veiculo.codigo} * 7'919 % 150'000;
    const auto dias = static_cast<qint64>(diasDeOrdens - (oficina.hoje.serial - runtime::Today().serial));
    return QString::number(primeira + dias * 30);
}

} // namespace

LinhaItem LinhaDoItem(const Item &item, const QString &tipo, double quanto, int unitario)
{
    const QString quantas = core::FormataQuantidade(quanto, item.um);
    const QString valor = Reais(unitario);
    return {.codigo = runtime::Format(item.codigo, core::mascaraCodigo),
            .tipo = tipo,
            .quantidade = quantas,
            .descricao = item.nome,
            .valorUnit = valor,
            .valorTotal = documents::ValorDaLinha(quantas, valor)};
}

QString SomaDasLinhas(const std::vector<LinhaItem> &itens)
{
    QString total = u"0,00"_s;
    for (const LinhaItem &item : itens) {
        total = core::SomaTexto(total, item.valorTotal);
    }
    return total;
}

workorders::NovaOrdem NovaOrdemPara(const Veiculo &veiculo, const Oficina &oficina, Sorteio &sorteio)
{
    workorders::NovaOrdem ordem;
    ordem.codCliente = runtime::Format(veiculo.codCliente, core::mascaraCodigo);
    ordem.codVeiculo = runtime::Format(veiculo.codigo, core::mascaraCodigo);
    ordem.km = quilometragem(veiculo, oficina);
    ordem.observacao = sorteio.um(queixas()).toString();
    ordem.mecanico = sorteio.um(mecanicos()).toString();
    ordem.itens = itensPara(veiculo, oficina, sorteio);
    ordem.servicos = servicosExecutados(ordem.itens);
    ordem.valor = SomaDasLinhas(ordem.itens);
    return ordem;
}

} // namespace amostra
