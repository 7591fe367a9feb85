#include "core/esquema.h"
#include "platform/runtime/runtime.h"
#include "tools/confere/conferencia.h"

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

struct Contada {
    QString nome;
    QString contador;
};

/// The column that the engine numbers; "" for a table without one.
QString contadorDe(const dao::TableDef &tabela)
{
    for (const dao::Field &campo : tabela.fields()) {
        if (campo.isCounter()) {
            return campo.name;
        }
    }
    return {};
}

/// Those of the program: what else somebody keeps in the file has codes of his own.
std::vector<Contada> tabelasComContador(const Banco &banco)
{
    const QStringList nossas = core::TabelasDoPrograma();
    std::vector<Contada> tabelas;
    for (const dao::TableDef &tabela : banco.tabelas()) {
        const QString contador = contadorDe(tabela);
        if (!contador.isEmpty() && nossas.contains(tabela.name(), Qt::CaseInsensitive)) {
            tabelas.push_back({tabela.name(), contador});
        }
    }
    return tabelas;
}

void confereTabela(const Contada &tabela, Banco &banco, Achados &achados)
{
    std::vector<qint64> codigos;
    int sem = 0;
    banco.paraCada(tabela.nome, {tabela.contador}, [&](const dao::Recordset &linha) {
        achados.conta();
        if (const auto codigo = Codigo(linha.value(0)); codigo && *codigo > 0) {
            codigos.push_back(*codigo);
        } else {
            ++sem;
        }
    });
    if (sem > 0) {
        achados.acha(
            u"%1 tem linhas sem código, ou com um código que não é de 1 em diante: %2."_s.arg(tabela.nome).arg(sem));
    }
    std::sort(codigos.begin(), codigos.end());
    for (auto um = codigos.cbegin(); um != codigos.cend();) {
        const auto outro = std::upper_bound(um, codigos.cend(), *um);
        if (const auto quantas = outro - um; quantas > 1) {
            achados.acha(NomeDaLinha(tabela.nome, *um) + u" aparece em %1 linhas."_s.arg(quantas));
        }
        um = outro;
    }
}

void confereCodigos(Banco &banco, Achados &achados)
{
    for (const Contada &tabela : tabelasComContador(banco)) {
        confereTabela(tabela, banco, achados);
    }
}

/// Rows that belong to a document or a part, whose numbers the counter gives: a number that it has not come to yet will
/// be given to a new one, which then has these rows from the start.
struct Pertence {
    QStringView tabela;
    QStringView coluna;
    QStringView alvo;
};

constexpr std::array<Pertence, 7> pertences{{
    {u"OSPecas", u"CodOS", u"OrdemServico"},
    {u"Fiados", u"CodOs", u"OrdemServico"},
    {u"OrcaPecas", u"CodOrca", u"Orcamento"},
    {u"NotasPecas", u"CodNota", u"NotasEntradas"},
    {u"Estoque", u"CodPeca", u"Pecas"},
    {u"ContaFiado", u"CodCliente", u"Clientes"},
    {u"Fiados", u"CodCliente", u"Clientes"},
}};

qint64 maiorDe(const QSet<qint64> &codigos)
{
    const auto maior = std::max_element(codigos.begin(), codigos.end());
    return maior != codigos.end() ? std::max<qint64>(*maior, 0) : 0;
}

void conferePertences(const QString &tabela, qint64 ultimo, Banco &banco, Achados &achados)
{
    for (const Pertence &pertence : pertences) {
        if (pertence.alvo.compare(tabela, Qt::CaseInsensitive) != 0 ||
            !banco.tem(pertence.tabela, {pertence.coluna.toString()})) {
            continue;
        }
        const qint64 maior = maiorDe(banco.codigos(pertence.tabela, pertence.coluna.toString()));
        if (maior > ultimo) {
            achados.acha(
                u"O próximo código de %1 é %2, mas %3 já tem linhas até o código %4, que passariam aos novos."_s.arg(
                    tabela, TextoDoCodigo(ultimo + 1), pertence.tabela, TextoDoCodigo(maior)));
        }
    }
}

void confereContadores(Banco &banco, Achados &achados)
{
    for (const auto &[tabela, contador] : tabelasComContador(banco)) {
        achados.conta();
        const qint64 ultimo = banco.ultimoNumero(tabela);
        const qint64 maior = maiorDe(banco.codigos(tabela, contador));
        if (ultimo < maior) {
            achados.acha(u"O próximo código de %1 é %2, mas já há o código %3."_s.arg(tabela, TextoDoCodigo(ultimo + 1),
                                                                                      TextoDoCodigo(maior)));
        }
        if (ultimo >= std::numeric_limits<qint32>::max()) {
            achados.acha(
                u"O contador de %1 chegou ao fim (%2): não há próximo código."_s.arg(tabela, TextoDoCodigo(ultimo)));
        }
        conferePertences(tabela, ultimo, banco, achados);
    }
}

} // namespace

std::vector<Conferencia> ConferenciasDosCodigos()
{
    return {{.nome = u"Códigos"_s,
             .pergunta = u"nenhuma linha está sem código e nenhum código aparece duas vezes na mesma tabela"_s,
             .confere = confereCodigos},
            {.nome = u"Contadores"_s,
             .pergunta = u"o próximo código de cada tabela vem depois dos que existem e dos que outras linhas citam"_s,
             .confere = confereContadores,
             .oQueConta = u"tabela"}};
}

} // namespace confere
