#include "core/andamento.h"

#include <limits>
#include <utility>

namespace core
{

using namespace Qt::StringLiterals;

namespace
{

/// More often than the eye can follow would only cost time.
constexpr std::chrono::milliseconds entreDuasVistas{100};
constexpr int nunca = std::numeric_limits<int>::max();

MostradorDeAndamento &mostrador()
{
    static MostradorDeAndamento unico;
    return unico;
}

/// The outermost work.
const Andamento *&emObra()
{
    static const Andamento *obra = nullptr;
    return obra;
}

} // namespace

void defineMostrador(MostradorDeAndamento novo)
{
    mostrador() = std::move(novo);
}

Andamento::Andamento(QString obra, std::function<int()> total, int bloco, Esc esc)
    : obra_(std::move(obra)), pergunta_(std::move(total)), mostraEm_(Relogio::now() + mostrador().demora),
      bloco_(bloco), olhaEm_(nunca), esc_(esc)
{
    if (emObra() == nullptr && mostrador().mostra) {
        emObra() = this;
        olhaEm_ = bloco;
    }
}

Andamento::~Andamento()
{
    if (emObra() == this) {
        emObra() = nullptr;
    }
    if (mostrado_ && mostrador().termina) {
        mostrador().termina();
    }
}

void Andamento::olha()
{
    olhaEm_ = feitos_ + bloco_;
    const auto agora = Relogio::now();
    if (agora < mostraEm_ || !mostrador().mostra) {
        return;
    }
    const bool deixavel = esc_ == Esc::Deixa && mostrador().deixa;
    if (!std::exchange(mostrado_, true)) {
        total_ = pergunta_();
        obra_ += deixavel ? u" (Esc interrompe)"_s : QString();
    }
    mostrador().mostra(obra_, feitos_, total_);
    deixado_ = deixado_ || (deixavel && mostrador().deixa());
    mostraEm_ = agora + entreDuasVistas;
}

} // namespace core
