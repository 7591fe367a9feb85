#include "documents/pecas.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"

namespace documents
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// The number that a typed code begins with. Where that is out of range, as of "5E0615301", the text is an external
/// code alone.
double codigoDe(const QString &texto)
{
    try {
        return Val(texto);
    } catch (const RuntimeError &) {
        return 0;
    }
}

} // namespace

std::optional<PecaItem> ProcuraPeca(const QString &texto)
{
    auto peca = DBDados->OpenRecordset(u"SELECT * FROM Pecas WHERE Codigo = "_s + decimalText(codigoDe(texto), 15) +
                                       u" OR CodExterno = '"_s + texto + u"'"_s);
    if (peca.Eof()) {
        return std::nullopt;
    }
    return PecaItem{.codigo = Format(peca[u"Codigo"].Value(), mascaraCodigo),
                    .nome = NuloParaVazio(peca[u"Nome"].Value()),
                    .valorVenda = Format(peca[u"ValorVenda"].Value(), mascaraValor),
                    .valorCusto = Format(peca[u"ValorCusto"].Value(), mascaraValor),
                    .ps = NuloParaVazio(peca[u"PS"].Value()),
                    .um = NuloParaVazio(peca[u"UM"].Value())};
}

QString QuantidadeDaPeca(double quantidade, qint32 codPeca)
{
    auto peca = DBDados->OpenRecordset(u"SELECT UM FROM Pecas WHERE Codigo = "_s + QString::number(codPeca));
    const Value um = peca.Eof() ? Value{} : peca[u"UM"].Value();
    return FormataQuantidade(quantidade, IsNull(um) || IsEmpty(um) ? 0 : CInt(um));
}

} // namespace documents
