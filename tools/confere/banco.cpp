#include "tools/confere/banco.h"

#include "platform/runtime/runtime.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

bool mesmoNome(QStringView um, QStringView outro)
{
    return um.compare(outro, Qt::CaseInsensitive) == 0;
}

} // namespace

std::optional<qint64> Codigo(const runtime::Value &valor)
{
    if (runtime::IsNull(valor)) {
        return std::nullopt;
    }
    constexpr double maior = 1e15; // what another program may have written is still told apart from what exists
    return static_cast<qint64>(std::clamp(runtime::CDbl(valor), -maior, maior));
}

Banco::Banco(const QString &arquivo)
    : banco_(dao::DBEngine::OpenDatabase(arquivo, true)), exame_(arquivo), tabelas_(banco_->TableDefs())
{
}

const dao::TableDef *Banco::definicao(QStringView tabela) const
{
    const auto achada = std::find_if(tabelas_.begin(), tabelas_.end(),
                                     [tabela](const dao::TableDef &t) { return mesmoNome(t.name(), tabela); });
    return achada != tabelas_.end() ? &*achada : nullptr;
}

bool Banco::tem(QStringView tabela, const QStringList &colunas) const
{
    const dao::TableDef *const achada = definicao(tabela);
    return achada != nullptr && std::all_of(colunas.begin(), colunas.end(), [achada](const QString &coluna) {
               const auto &campos = achada->fields();
               return std::any_of(campos.begin(), campos.end(),
                                  [&coluna](const dao::Field &campo) { return mesmoNome(campo.name, coluna); });
           });
}

void Banco::paraCada(QStringView tabela, const QStringList &colunas, const Faz &faz)
{
    auto linha = banco_->OpenRecordset(u"SELECT ["_s + colunas.join(u"], ["_s) + u"] FROM ["_s + tabela + u']');
    for (; !linha.Eof(); linha.MoveNext()) {
        faz(linha);
    }
}

const QSet<qint64> &Banco::codigos(QStringView tabela, const QString &coluna)
{
    const QString chave = tabela + u'.' + coluna;
    const auto lidos = codigos_.constFind(chave);
    if (lidos != codigos_.cend()) {
        return *lidos;
    }
    QSet<qint64> codigos;
    paraCada(tabela, {coluna}, [&codigos](const dao::Recordset &linha) {
        if (const auto codigo = Codigo(linha.value(0))) {
            codigos.insert(*codigo);
        }
    });
    return *codigos_.insert(chave, codigos);
}

} // namespace confere
