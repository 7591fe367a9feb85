#include "tools/amostra/orcamentos.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "estimates/orcamento.h"
#include "platform/runtime/runtime.h"
#include "tools/amostra/catalogo.h"
#include "tools/amostra/conteudo.h"
#include "tools/amostra/ordens.h"
#include "tools/amostra/pessoas.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

constexpr int menosOrcamentos = 16;
constexpr int maisOrcamentos = 15'000;
constexpr int porCentoDeCadastrados = 70;

/// The days of the estimates, the oldest first: evenly over the days that the workshop was open.
std::vector<runtime::Date> datas(const Oficina &oficina, int quantos, Sorteio &sorteio)
{
    const auto abertos = DiasAbertos(oficina.hoje);
    std::vector<runtime::Date> dias;
    for (int feitos = 0; feitos < quantos; ++feitos) {
        dias.push_back(sorteio.um(abertos));
    }
    std::ranges::stable_sort(dias, {}, &runtime::Date::serial);
    return dias;
}

/// The customer of a vehicle, or somebody who came in from the street with one like it.
void poeCliente(estimates::Orcamento &orcamento, const Veiculo &veiculo, Sorteio &sorteio)
{
    if (!sorteio.chance(porCentoDeCadastrados)) {
        orcamento.nome = NomeDePessoa(sorteio);
        orcamento.fone = FoneFixo(sorteio, CidadeDeCliente(sorteio));
        return;
    }
    orcamento.codCliente = runtime::Format(veiculo.codCliente, core::mascaraCodigo);
    const QString condicao = u"Codigo = "_s + orcamento.codCliente;
    orcamento.nome = core::LocalizaCampo(u"Nome"_s, u"Clientes"_s, condicao);
    orcamento.fone = core::LocalizaCampo(u"Fone1"_s, u"Clientes"_s, condicao);
}

estimates::Orcamento novoOrcamento(const Oficina &oficina, Sorteio &sorteio)
{
    const double antes = oficina.hoje.serial - runtime::Today().serial;
    const int veiculos = oficina.veiculosAteODia[static_cast<std::size_t>(antes)];
    const Veiculo &veiculo = oficina.veiculos[static_cast<std::size_t>(sorteio.abaixo(static_cast<quint64>(veiculos)))];
    const workorders::NovaOrdem conteudo = NovaOrdemPara(veiculo, oficina, sorteio);
    estimates::Orcamento orcamento{
        .marca = modelos()[static_cast<std::size_t>(veiculo.modelo)].nome.toString(),
        .ano = core::LocalizaCampo(u"Ano"_s, u"Veiculos"_s, u"Codigo = "_s + QString::number(veiculo.codigo)),
        .observacoes = conteudo.observacao,
        .valor = conteudo.valor,
        .itens = conteudo.itens};
    poeCliente(orcamento, veiculo, sorteio);
    return orcamento;
}

} // namespace

int QuantosOrcamentos(int clientes)
{
    return std::clamp(clientes / 4, menosOrcamentos, maisOrcamentos);
}

void IncluiOrcamentos(const Oficina &oficina, Resumo &resumo, const Progresso &progresso)
{
    Sorteio sorteio(oficina.tamanho.semente, sobreOrcamentos);
    resumo.orcamentos = QuantosOrcamentos(oficina.tamanho.clientes);
    int feitos = 0;
    for (const runtime::Date dia : datas(oficina, resumo.orcamentos, sorteio)) {
        runtime::setClock(dia);
        estimates::IncluiOrcamento(novoOrcamento(oficina, sorteio));
        progresso(u"Orçamentos"_s, ++feitos, resumo.orcamentos);
    }
}

} // namespace amostra
