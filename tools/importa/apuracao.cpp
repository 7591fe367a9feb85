#include "tools/importa/apuracao.h"

#include "core/razao.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

constexpr std::array razoes{core::razaoCaixa, core::razaoBanco1, core::razaoBanco2, core::razaoContaFiado,
                            core::razaoEstoque};

bool temValores(dao::FieldType tipo)
{
    return tipo == dao::FieldType::Single || tipo == dao::FieldType::Double || tipo == dao::FieldType::Currency;
}

std::optional<int> lugarDe(const dao::TableDef &tabela, QStringView nome)
{
    const auto &campos = tabela.fields();
    const auto achado = std::find_if(campos.begin(), campos.end(), [nome](const dao::Field &campo) {
        return nome.compare(campo.name, Qt::CaseInsensitive) == 0;
    });
    return achado != campos.end() ? std::optional(static_cast<int>(achado - campos.begin())) : std::nullopt;
}

} // namespace

Apuracao::Apuracao(const dao::TableDef &tabela) : tabela_(tabela.name())
{
    for (std::size_t i = 0; i < tabela.fields().size(); ++i) {
        if (temValores(tabela.fields()[i].type)) {
            colunas_.push_back(static_cast<int>(i));
        }
    }
    somas_.resize(colunas_.size());
    acrescentaRazao(tabela);
}

void Apuracao::acrescentaRazao(const dao::TableDef &tabela)
{
    const auto *const razao = std::find_if(razoes.begin(), razoes.end(), [this](const core::Razao &uma) {
        return uma.tabela.compare(tabela_, Qt::CaseInsensitive) == 0;
    });
    if (razao == razoes.end()) {
        return;
    }
    const auto pede = [this](int lugar) {
        colunas_.push_back(lugar);
        return colunas_.size() - 1;
    };
    const auto codigo = lugarDe(tabela, u"Codigo");
    const auto saldo = lugarDe(tabela, razao->saldo);
    const auto dono = razao->dono.isEmpty() ? std::nullopt : lugarDe(tabela, razao->dono);
    if (!codigo || !saldo || dono.has_value() == razao->dono.isEmpty()) {
        return;
    }
    razao_.emplace(Razao{.codigo = pede(*codigo), .saldo = pede(*saldo)});
    if (dono) {
        razao_->dono = pede(*dono);
    }
}

/// What the file itself holds as a number; what is none counts neither here nor there.
std::optional<double> Apuracao::numeroDe(const runtime::Value &valor)
{
    return std::visit(
        [](const auto &um) -> std::optional<double> {
            using Tipo = std::decay_t<decltype(um)>;
            if constexpr (std::is_arithmetic_v<Tipo> && !std::is_same_v<Tipo, bool>) {
                const auto numero = static_cast<double>(um);
                return std::isnan(numero) ? std::nullopt : std::optional(numero);
            } else {
                return std::nullopt;
            }
        },
        valor);
}

/// Of several rows of one code the last one is met last when they are read in the order of their codes.
void Apuracao::contaSaldo(const runtime::Value &codigo, const runtime::Value &dono, const runtime::Value &saldo)
{
    const auto numero = numeroDe(codigo);
    const auto deQuem = numeroDe(dono);
    if (!numero || !deQuem) {
        return;
    }
    const Ultimo este{.codigo = *numero, .saldo = numeroDe(saldo).value_or(0)};
    const auto conhecido = ultimos_.find(static_cast<qint64>(*deQuem));
    if (conhecido == ultimos_.end()) {
        ultimos_.insert(static_cast<qint64>(*deQuem), este);
    } else if (este.codigo >= conhecido->codigo) {
        *conhecido = este;
    }
}

/// By owner: what a hash gives its entries by is another order every time.
double Apuracao::total() const
{
    QList<qint64> donos = ultimos_.keys();
    std::sort(donos.begin(), donos.end());
    double soma = 0;
    for (const qint64 dono : donos) {
        soma += ultimos_[dono].saldo;
    }
    return soma;
}

std::optional<Saldo> Apuracao::compara(const Apuracao &destino) const
{
    if (!razao_) {
        return std::nullopt;
    }
    qint64 diferentes = 0;
    for (auto ultimo = ultimos_.cbegin(); ultimo != ultimos_.cend(); ++ultimo) {
        const auto outro = destino.ultimos_.constFind(ultimo.key());
        diferentes += outro == destino.ultimos_.cend() || outro->saldo != ultimo->saldo ? 1 : 0;
    }
    for (auto ultimo = destino.ultimos_.cbegin(); ultimo != destino.ultimos_.cend(); ++ultimo) {
        diferentes += ultimos_.contains(ultimo.key()) ? 0 : 1;
    }
    return Saldo{.tabela = tabela_,
                 .porDono = razao_->dono.has_value(),
                 .contas = ultimos_.size(),
                 .origem = total(),
                 .destino = destino.total(),
                 .diferentes = diferentes};
}

} // namespace importa
