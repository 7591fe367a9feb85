#include "tools/confere/razao.h"

#include "platform/runtime/numbers.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <utility>

namespace confere
{

namespace
{

constexpr size_t nenhuma = std::numeric_limits<size_t>::max();

double movimento(const LinhaDoRazao &linha)
{
    return linha.entrada ? double{*linha.entrada} : -double{linha.saida.value_or(0)};
}

bool ehContagem(const LinhaDoRazao &linha, TipoDeRazao tipo)
{
    return tipo == TipoDeRazao::SoLancado && linha.entrada && linha.saida;
}

/// Half the distance to the next 32-bit float: what rounding a number to one may change.
double folga(double valor)
{
    const float modulo = std::fabs(static_cast<float>(valor));
    return (double{std::nextafter(modulo, std::numeric_limits<float>::infinity())} - double{modulo}) / 2;
}

/// Whether a balance is the sum, however wide it was made: the movement may be a text that its column rounded, and the
/// sum is rounded once more.
bool segueDaSoma(float saldo, double anterior, double valor)
{
    constexpr double arredondamentoDaConta = 1.001;
    const double soma = anterior + valor;
    return std::fabs(double{saldo} - soma) <= (folga(valor) + folga(soma)) * arredondamentoDaConta;
}

bool segue(const LinhaDoRazao &linha, float anterior, TipoDeRazao tipo)
{
    if (!linha.saldo) {
        return false;
    }
    if (ehContagem(linha, tipo)) {
        return *linha.saldo == *linha.entrada;
    }
    const double valor = movimento(linha);
    if (segueDaSoma(*linha.saldo, double{anterior}, valor)) {
        return true;
    }
    if (!std::isfinite(anterior)) {
        return false;
    }
    // A balance that was looked up came by way of a text of seven digits, and was taken in 64 bits or in 32.
    const double buscado = runtime::CDbl(runtime::CStr(anterior));
    return segueDaSoma(*linha.saldo, buscado, valor) ||
           segueDaSoma(*linha.saldo, double{static_cast<float>(buscado)}, valor);
}

float esperado(const LinhaDoRazao &linha, float anterior, TipoDeRazao tipo)
{
    return ehContagem(linha, tipo) ? *linha.entrada : static_cast<float>(double{anterior} + movimento(linha));
}

/// The rows in the order of their dates, and how many of them do not follow the one before. Any of them can leave.
class FilaPorData
{
public:
    using Quebra = std::function<bool(size_t linha, size_t anterior)>;

    FilaPorData(const std::vector<size_t> &ordem, Quebra quebra)
        : quebra_(std::move(quebra)), antes_(ordem.size(), nenhuma), depois_(ordem.size(), nenhuma)
    {
        size_t anterior = nenhuma;
        for (const size_t linha : ordem) {
            liga(anterior, linha);
            anterior = linha;
        }
    }

    size_t falhas() const { return falhas_; }

    void retira(size_t linha)
    {
        const size_t antes = antes_[linha];
        const size_t depois = depois_[linha];
        falhas_ -= quebra_(linha, antes) ? 1 : 0;
        if (depois != nenhuma) {
            falhas_ -= quebra_(depois, linha) ? 1 : 0;
            liga(antes, depois);
        } else if (antes != nenhuma) {
            depois_[antes] = nenhuma;
        }
    }

private:
    void liga(size_t antes, size_t linha)
    {
        antes_[linha] = antes;
        if (antes != nenhuma) {
            depois_[antes] = linha;
        }
        falhas_ += quebra_(linha, antes) ? 1 : 0;
    }

    Quebra quebra_;
    std::vector<size_t> antes_;
    std::vector<size_t> depois_;
    size_t falhas_ = 0;
};

/// One ledger, in its two orders.
class Razao
{
public:
    Razao(const std::vector<LinhaDoRazao> &linhas, TipoDeRazao tipo) : linhas_(linhas), tipo_(tipo) {}

    std::vector<Desacordo> desacordos() const
    {
        if (tipo_ == TipoDeRazao::SoLancado) {
            return percorre(0);
        }
        // A row whose balance alone is wrong counts twice there and is found once: of several the shortest answer.
        const auto [menos, mais] = quantasRecalculadas();
        auto achados = percorre(mais);
        if (menos != mais && !achados.empty()) {
            auto outros = percorre(menos);
            return outros.size() < achados.size() ? outros : achados;
        }
        return achados;
    }

private:
    bool quebra(size_t linha, size_t anterior) const
    {
        const float saldo = anterior == nenhuma ? 0 : linhas_[anterior].saldo.value_or(0);
        return !segue(linhas_[linha], saldo, tipo_);
    }

    std::vector<size_t> porData() const
    {
        std::vector<size_t> ordem(linhas_.size());
        std::iota(ordem.begin(), ordem.end(), size_t{0});
        std::stable_sort(ordem.begin(), ordem.end(), [this](size_t um, size_t outro) {
            return linhas_[um].data < linhas_[outro].data; // of one day by code, as they stand
        });
        return ordem;
    }

    /// How many of the first rows by code a recalculation has met: with fewest faults by date among these and by code
    /// behind them; the lowest and the highest number of these. The rows leave the order by date one after another, so
    /// that each number costs the same.
    std::pair<size_t, size_t> quantasRecalculadas() const
    {
        const auto quebraEntre = [this](size_t linha, size_t anterior) { return quebra(linha, anterior); };
        FilaPorData fila(porData(), quebraEntre);
        std::pair melhores(linhas_.size(), linhas_.size());
        size_t menos = fila.falhas();
        size_t porCodigo = 0;
        for (size_t quantas = linhas_.size(); quantas-- > 0;) {
            fila.retira(quantas);
            porCodigo += quebra(quantas, quantas == 0 ? nenhuma : quantas - 1) ? 1 : 0;
            const size_t falhas = fila.falhas() + porCodigo;
            if (falhas < menos) {
                menos = falhas;
                melhores = {quantas, quantas};
            } else if (falhas == menos) {
                melhores.first = quantas;
            }
        }
        return melhores;
    }

    std::vector<Desacordo> percorre(size_t recalculadas) const
    {
        std::vector<float> seguiria(linhas_.size(), 0);
        std::vector<bool> quebrada(linhas_.size(), false);
        std::vector<Desacordo> achados;
        const auto visita = [&](size_t linha, size_t anterior) {
            const bool primeira = anterior == nenhuma;
            const float saldo = primeira ? 0 : linhas_[anterior].saldo.value_or(seguiria[anterior]);
            bool certa = segue(linhas_[linha], saldo, tipo_);
            seguiria[linha] = esperado(linhas_[linha], saldo, tipo_);
            if (!certa && !primeira && quebrada[anterior] && segue(linhas_[linha], seguiria[anterior], tipo_)) {
                certa = true;
            }
            quebrada[linha] = !certa;
            if (!certa) {
                achados.push_back({linha, primeira ? std::nullopt : std::optional(anterior), seguiria[linha]});
            }
        };
        size_t anterior = nenhuma;
        for (const size_t linha : porData()) {
            if (linha < recalculadas) {
                visita(linha, anterior);
                anterior = linha;
            }
        }
        for (size_t linha = recalculadas; linha < linhas_.size(); ++linha) {
            visita(linha, linha == 0 ? nenhuma : linha - 1);
        }
        return achados;
    }

    const std::vector<LinhaDoRazao> &linhas_;
    TipoDeRazao tipo_;
};

} // namespace

std::vector<Desacordo> Desacordos(const std::vector<LinhaDoRazao> &linhas, TipoDeRazao tipo)
{
    return Razao(linhas, tipo).desacordos();
}

} // namespace confere
