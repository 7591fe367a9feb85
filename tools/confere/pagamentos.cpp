#include "core/banco.h"
#include "platform/runtime/runtime.h"
#include "tools/confere/conferencia.h"

#include <array>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

enum class Falta { Dia, Pagamento }; ///< paid on no day, or a day without being paid

/// Rows whose mark of payment and day of payment belong together.
struct Situacao {
    QStringView nome;
    QStringView pergunta;
    Nivel nivel;
    QStringView tabela;
    Falta falta;
};

constexpr std::array<Situacao, 6> situacoes{{
    {u"Contas recebidas sem dia", u"toda conta recebida tem o dia do pagamento", Nivel::Erro, u"ContasReceber",
     Falta::Dia},
    {u"Contas a receber com dia", u"nenhuma conta a receber em aberto tem dia de pagamento", Nivel::Erro,
     u"ContasReceber", Falta::Pagamento},
    {u"Contas pagas sem dia", u"toda conta paga tem o dia do pagamento", Nivel::Erro, u"ContasPagar", Falta::Dia},
    {u"Contas a pagar com dia", u"nenhuma conta a pagar em aberto tem dia de pagamento", Nivel::Erro, u"ContasPagar",
     Falta::Pagamento},
    {u"Notas de entrada pagas sem dia",
     u"toda nota de entrada paga tem o dia do pagamento (quem cancela a pergunta da data deixa a nota sem ele)",
     Nivel::Aviso, u"NotasEntradas", Falta::Dia},
    {u"Ordens pagas sem dia",
     u"toda ordem de serviço paga tem o dia do pagamento, menos as que eram fiado (a janela de alteração deixa marcar "
     u"como paga sem data)",
     Nivel::Aviso, u"OrdemServico", Falta::Dia},
}};

const QStringList colunas{u"Codigo"_s, u"Pago"_s, u"DataPagto"_s};

bool ehOrdem(const Situacao &situacao)
{
    return situacao.tabela == u"OrdemServico";
}

void confereSituacao(const Situacao &situacao, Banco &banco, Achados &achados)
{
    // Settling a pending order marks it as paid and writes no day.
    const QSet<qint64> fiados = ehOrdem(situacao) ? banco.codigos(u"Fiados", u"CodOs"_s) : QSet<qint64>();
    const bool procura = situacao.falta == Falta::Dia;
    banco.paraCada(situacao.tabela, colunas, [&](const dao::Recordset &linha) {
        if (core::Verdadeiro(linha.value(1)) != procura) {
            return;
        }
        achados.conta();
        const std::optional<qint64> codigo = Codigo(linha.value(0));
        if (runtime::IsNull(linha.value(2)) != procura || fiados.contains(codigo.value_or(0))) {
            return;
        }
        achados.acha(NomeDaLinha(situacao.tabela, codigo) +
                     (procura ? u" está paga e não tem o dia do pagamento."_s
                              : u" está em aberto e tem o dia de pagamento %1."_s.arg(
                                    runtime::Format(linha.value(2), u"dd/mm/yyyy"))));
    });
}

} // namespace

std::vector<Conferencia> ConferenciasDosPagamentos()
{
    std::vector<Conferencia> conferencias;
    conferencias.reserve(situacoes.size());
    for (const Situacao &situacao : situacoes) {
        std::vector<Conferencia::Precisa> precisa{{situacao.tabela, colunas}};
        if (ehOrdem(situacao)) {
            precisa.push_back({u"Fiados", {u"CodOs"_s}});
        }
        conferencias.push_back(
            {.nome = situacao.nome.toString(),
             .pergunta = situacao.pergunta.toString(),
             .nivel = situacao.nivel,
             .precisa = precisa,
             .confere = [&situacao](Banco &banco, Achados &achados) { confereSituacao(situacao, banco, achados); }});
    }
    return conferencias;
}

} // namespace confere
