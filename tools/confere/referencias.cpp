#include "tools/confere/conferencia.h"

#include <array>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

/// A column that names a row of another table.
struct Referencia {
    QStringView titulo;
    QStringView tabela;
    QStringView coluna;
    QStringView alvo;
    QStringView nome; ///< of what is referred to, with its article
    Nivel nivel = Nivel::Aviso;
    bool parte = false; ///< the row is a part of what it refers to and is nothing without it
};

/// Lines go with their document whenever the program deletes that: an error. Of all else the program looks at nothing
/// when it deletes, and the window of a part's stock that is open while the part goes begins its ledger anew: a
/// warning.
constexpr std::array<Referencia, 21> referencias{{
    {u"Itens de ordens e as suas ordens", u"OSPecas", u"CodOS", u"OrdemServico", u"a ordem de serviço", Nivel::Erro,
     true},
    {u"Itens de orçamentos e os seus orçamentos", u"OrcaPecas", u"CodOrca", u"Orcamento", u"o orçamento", Nivel::Erro,
     true},
    {u"Itens de notas e as suas notas", u"NotasPecas", u"CodNota", u"NotasEntradas", u"a nota de entrada", Nivel::Erro,
     true},
    {u"Linhas do estoque e as suas peças", u"Estoque", u"CodPeca", u"Pecas", u"a peça", Nivel::Aviso, true},
    {u"Clientes dos veículos", u"Veiculos", u"CodCliente", u"Clientes", u"o cliente"},
    {u"Clientes das ordens", u"OrdemServico", u"CodCliente", u"Clientes", u"o cliente"},
    {u"Veículos das ordens", u"OrdemServico", u"CodVeiculo", u"Veiculos", u"o veículo"},
    {u"Peças dos itens de ordens", u"OSPecas", u"CodPeca", u"Pecas", u"a peça"},
    {u"Clientes dos orçamentos", u"Orcamento", u"CodCliente", u"Clientes", u"o cliente"},
    {u"Peças dos itens de orçamentos", u"OrcaPecas", u"CodPeca", u"Pecas", u"a peça"},
    {u"Fornecedores das notas", u"NotasEntradas", u"CodForn", u"Fornecedores", u"o fornecedor"},
    {u"Peças dos itens de notas", u"NotasPecas", u"CodPeca", u"Pecas", u"a peça"},
    {u"Ordens dos fiados", u"Fiados", u"CodOs", u"OrdemServico", u"a ordem de serviço"},
    {u"Clientes dos fiados", u"Fiados", u"CodCliente", u"Clientes", u"o cliente"},
    {u"Clientes das contas", u"ContaFiado", u"CodCliente", u"Clientes", u"o cliente"},
    {u"Ordens dos cheques", u"Cheques", u"CodOs", u"OrdemServico", u"a ordem de serviço"},
    {u"Ordens das contas a receber", u"ContasReceber", u"CodOs", u"OrdemServico", u"a ordem de serviço"},
    {u"Ordens das contas a pagar", u"ContasPagar", u"CodOs", u"OrdemServico", u"a ordem de serviço"},
    {u"Ordens do Livro Caixa", u"Caixa", u"CodOs", u"OrdemServico", u"a ordem de serviço"},
    {u"Ordens do Banco 01", u"Banco1", u"CodOs", u"OrdemServico", u"a ordem de serviço"},
    {u"Ordens do Banco 02", u"Banco2", u"CodOs", u"OrdemServico", u"a ordem de serviço"},
}};

QStringList colunasDe(const Referencia &referencia)
{
    return {u"Codigo"_s, referencia.coluna.toString()};
}

void confereReferencia(const Referencia &referencia, Banco &banco, Achados &achados)
{
    const QSet<qint64> &existem = banco.codigos(referencia.alvo, u"Codigo"_s);
    banco.paraCada(referencia.tabela, colunasDe(referencia), [&](const dao::Recordset &linha) {
        const qint64 codigo = Codigo(linha.value(1)).value_or(0);
        const bool nenhum = codigo == 0;
        if (nenhum && !referencia.parte) {
            return; // as the program writes it where there is nothing to refer to
        }
        achados.conta();
        if (!nenhum && existem.contains(codigo)) {
            return;
        }
        const QString nome = NomeDaLinha(referencia.tabela, Codigo(linha.value(0)));
        achados.acha(nenhum ? nome + u" não diz qual é %1 (%2 vazio)."_s.arg(referencia.nome, referencia.coluna)
                            : nome + u" cita %1 %2, que não existe em %3."_s.arg(referencia.nome, TextoDoCodigo(codigo),
                                                                                 referencia.alvo));
    });
}

} // namespace

std::vector<Conferencia> ConferenciasDasReferencias()
{
    std::vector<Conferencia> conferencias;
    conferencias.reserve(referencias.size());
    for (const Referencia &referencia : referencias) {
        conferencias.push_back(
            {.nome = referencia.titulo.toString(),
             .pergunta = u"%1 que %2 cita existe%3"_s.arg(
                 referencia.nome, referencia.tabela,
                 referencia.nivel == Nivel::Erro ? QString() : u" (o programa deixa excluir o que outros citam)"_s),
             .nivel = referencia.nivel,
             .precisa = {{referencia.tabela, colunasDe(referencia)}, {referencia.alvo, {u"Codigo"_s}}},
             .confere = [&referencia](Banco &banco, Achados &achados) {
                 confereReferencia(referencia, banco, achados);
             }});
    }
    return conferencias;
}

} // namespace confere
