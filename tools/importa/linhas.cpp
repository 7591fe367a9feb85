#include "tools/importa/linhas.h"

#include "platform/runtime/runtime.h"

#include <array>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

using runtime::Value;

constexpr qint64 linhasPorAviso = 1000;
constexpr std::size_t mudancas = static_cast<std::size_t>(Mudanca::Ilegivel) + 1;

/// What stood there, as the windows would show it.
QString mostrado(const Value &valor)
{
    try {
        return runtime::IsNull(valor) || runtime::IsEmpty(valor) ? QString() : runtime::CStr(valor);
    } catch (const runtime::RuntimeError &) { // a day beyond the calendar
        const auto *const data = std::get_if<runtime::Date>(&valor);
        return data != nullptr ? QString::number(data->serial) : QString();
    }
}

std::optional<std::size_t> colunaDoCodigo(const dao::TableDef &tabela)
{
    for (std::size_t i = 0; i < tabela.fields().size(); ++i) {
        if (tabela.fields()[i].name.compare(u"Codigo", Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    return std::nullopt;
}

/// What could not come over as it was, of one table. All is counted and the first ones are kept.
class Ocorrencias
{
public:
    Ocorrencias(const dao::TableDef &tabela, Resultado &resultado)
        : tabela_(tabela), resultado_(resultado), lugares_(tabela.fields().size())
    {
    }

    void acha(std::size_t campo, Mudanca mudanca, const Lugar &lugar)
    {
        auto &onde = lugares_[campo][static_cast<std::size_t>(mudanca)];
        if (!onde) {
            onde = resultado_.ocorrencias.size();
            resultado_.ocorrencias.push_back(
                {.tabela = tabela_.name(), .coluna = tabela_.fields()[campo].name, .mudanca = mudanca});
        }
        Ocorrencia &ocorrencia = resultado_.ocorrencias[*onde];
        ++ocorrencia.quantas;
        if (ocorrencia.lugares.size() < lugaresGuardados) {
            ocorrencia.lugares.push_back(lugar);
        }
    }

private:
    const dao::TableDef &tabela_;
    Resultado &resultado_;
    std::vector<std::array<std::optional<std::size_t>, mudancas>> lugares_; ///< in the result
};

/// One row after the other from the source's columns into the target's.
class Tradutor
{
public:
    Tradutor(const Copia &copia, Resultado &resultado)
        : copia_(copia), ocorrencias_(copia.destino, resultado), codigo_(colunaDoCodigo(copia.destino)),
          linha_(copia.fontes.size())
    {
        for (std::size_t i = 0; i < linha_.size(); ++i) {
            if (!copia.fontes[i] && copia.destino.fields()[i].type == dao::FieldType::Boolean) {
                linha_[i] = false;
            } else {
                linha_[i] = runtime::Null();
            }
        }
    }

    const std::vector<Value> &traduz(const jet::Row &origem)
    {
        ++numero_;
        for (std::size_t i = 0; i < linha_.size(); ++i) {
            if (const auto &fonte = copia_.fontes[i]) {
                linha_[i] = origem.values[static_cast<std::size_t>(fonte->coluna)];
                if (const auto mudanca = fonte->conversor.converte(linha_[i])) {
                    acha(i, *mudanca, origem);
                }
            }
        }
        for (const int coluna : origem.unreadable) {
            ilegivel(coluna, origem);
        }
        return linha_;
    }

private:
    void acha(std::size_t campo, Mudanca mudanca, const jet::Row &origem)
    {
        Lugar lugar{.linha = numero_, .codigo = codigoDe(origem), .valor = {}};
        lugar.valor = mostrado(origem.values[static_cast<std::size_t>(copia_.fontes[campo]->coluna)]);
        ocorrencias_.acha(campo, mudanca, lugar);
    }

    /// A column that is left out does not matter.
    void ilegivel(int coluna, const jet::Row &origem)
    {
        for (std::size_t i = 0; i < copia_.fontes.size(); ++i) {
            if (copia_.fontes[i] && copia_.fontes[i]->coluna == coluna) {
                acha(i, Mudanca::Ilegivel, origem);
            }
        }
    }

    std::optional<qint64> codigoDe(const jet::Row &origem) const
    {
        if (!codigo_ || !copia_.fontes[*codigo_]) {
            return std::nullopt;
        }
        const Value &valor = origem.values[static_cast<std::size_t>(copia_.fontes[*codigo_]->coluna)];
        if (const auto *const inteiro = std::get_if<qint16>(&valor)) {
            return *inteiro;
        }
        const auto *const longo = std::get_if<qint32>(&valor);
        return longo != nullptr ? std::optional<qint64>(*longo) : std::nullopt;
    }

    const Copia &copia_;
    Ocorrencias ocorrencias_;
    std::optional<std::size_t> codigo_;
    std::vector<Value> linha_;
    qint64 numero_ = 0;
};

[[noreturn]] void recusa(jet::Damage dano, const QString &tabela, qint64 prometidas, qint64 lidas)
{
    if (dano == jet::Damage::NotStarted) {
        throw Erro(Falha::LeitorNaoIniciou);
    }
    const Falha falha = dano == jet::Damage::Silent ? Falha::LeituraNaoTermina : Falha::TabelaDanificada;
    throw Erro(falha, {.tabela = tabela, .prometidas = prometidas, .lidas = lidas});
}

} // namespace

Linhas::Linhas(jet::Reader &leitor, dao::Database &banco, const Andamento &andamento, Resultado &resultado)
    : leitor_(leitor), banco_(banco), andamento_(andamento), resultado_(resultado)
{
}

void Linhas::avisa(Passo::Fase fase, const QString &tabela)
{
    if (!andamento_({.fase = fase, .tabela = tabela, .linhas = linhas_, .total = total_})) {
        throw Erro(Falha::Interrompida);
    }
}

/// A row less than the table promises may be any row: such a file is no basis for years of work.
void Linhas::confere(const Copia &copia, const jet::Reading &leitura) const
{
    const Tabela &tabela = resultado_.tabelas[copia.noResultado];
    if (leitura.rows != tabela.prometidas || leitura.lost > 0) {
        recusa(jet::Damage::Garbled, tabela.nome, tabela.prometidas, leitura.rows);
    }
}

Apuracao Linhas::copia(const Copia &copia)
{
    Apuracao apuracao(copia.destino);
    const Value nulo{runtime::Null()};
    Tradutor tradutor(copia, resultado_);
    auto destino = banco_.LoadRows(copia.destino.name());
    Tabela &tabela = resultado_.tabelas[copia.noResultado];
    avisa(Passo::Fase::Linhas, tabela.nome);
    try {
        const auto leitura = leitor_.read(copia.daOrigem, [&](const jet::Row &linha) {
            apuracao.conta([&](std::size_t i) -> const Value & {
                const auto &fonte = copia.fontes[static_cast<std::size_t>(apuracao.colunas()[i])];
                return fonte ? linha.values[static_cast<std::size_t>(fonte->coluna)] : nulo;
            });
            destino.append(tradutor.traduz(linha));
            ++tabela.lidas;
            if (++linhas_ % linhasPorAviso == 0) {
                avisa(Passo::Fase::Linhas, tabela.nome);
            }
            return true;
        });
        confere(copia, leitura);
    } catch (const jet::Damaged &dano) {
        recusa(dano.damage(), tabela.nome, tabela.prometidas, tabela.lidas);
    }
    avisa(Passo::Fase::Indices, tabela.nome);
    destino.finish();
    return apuracao;
}

} // namespace importa
