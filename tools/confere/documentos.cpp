#include "platform/runtime/runtime.h"
#include "tools/confere/conferencia.h"

#include <array>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

/// Which documents of a table are looked at.
enum class Quais { Todos, Fechadas, NaoFechadas };

/// Documents that ought to have lines.
struct Documento {
    QStringView nome;
    QStringView pergunta;
    Nivel nivel;
    QStringView tabela;
    QStringView linhas;
    QStringView coluna; ///< of the lines: the document's code
    Quais quais;
};

constexpr std::array<Documento, 4> documentos{{
    {u"Ordens fechadas sem itens", u"toda ordem de serviço fechada com pagamento tem itens", Nivel::Erro,
     u"OrdemServico", u"OSPecas", u"CodOS", Quais::Fechadas},
    {u"Ordens sem itens", u"toda outra ordem de serviço tem itens (pode ser aberta sem nenhum, mas assim não fecha)",
     Nivel::Aviso, u"OrdemServico", u"OSPecas", u"CodOS", Quais::NaoFechadas},
    {u"Orçamentos sem itens", u"todo orçamento tem itens (pode ser gravado sem nenhum, mas assim não é impresso)",
     Nivel::Aviso, u"Orcamento", u"OrcaPecas", u"CodOrca", Quais::Todos},
    {u"Notas de entrada sem itens", u"toda nota de entrada tem itens", Nivel::Erro, u"NotasEntradas", u"NotasPecas",
     u"CodNota", Quais::Todos},
}};

QStringList colunasDe(const Documento &documento)
{
    return documento.quais == Quais::Todos ? QStringList{u"Codigo"_s} : QStringList{u"Codigo"_s, u"DataOut"_s};
}

/// The payment window alone writes the day of closing.
bool estaEntre(const dao::Recordset &linha, Quais quais)
{
    return quais == Quais::Todos || runtime::IsNull(linha.value(1)) == (quais == Quais::NaoFechadas);
}

void confereDocumentos(const Documento &documento, Banco &banco, Achados &achados)
{
    const QSet<qint64> &comItens = banco.codigos(documento.linhas, documento.coluna.toString());
    banco.paraCada(documento.tabela, colunasDe(documento), [&](const dao::Recordset &linha) {
        if (!estaEntre(linha, documento.quais)) {
            return;
        }
        achados.conta();
        const std::optional<qint64> codigo = Codigo(linha.value(0));
        if (codigo && !comItens.contains(*codigo)) {
            achados.acha(NomeDaLinha(documento.tabela, codigo) +
                         u" não tem nenhuma linha em %1."_s.arg(documento.linhas));
        }
    });
}

} // namespace

std::vector<Conferencia> ConferenciasDosDocumentos()
{
    std::vector<Conferencia> conferencias;
    conferencias.reserve(documentos.size());
    for (const Documento &documento : documentos) {
        conferencias.push_back(
            {.nome = documento.nome.toString(),
             .pergunta = documento.pergunta.toString(),
             .nivel = documento.nivel,
             .precisa = {{documento.tabela, colunasDe(documento)}, {documento.linhas, {documento.coluna.toString()}}},
             .confere = [&documento](Banco &banco, Achados &achados) {
                 confereDocumentos(documento, banco, achados);
             }});
    }
    return conferencias;
}

} // namespace confere
