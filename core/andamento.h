#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace core
{

/// Where long work shows: the rules know no window, so whoever has one says how.
struct MostradorDeAndamento {
    std::function<void(const QString &obra, int feitos, int total)> mostra; ///< total 0: not known
    std::function<void()> termina;                                          ///< behind what was shown, once
    std::function<bool()> deixa = {};                                       ///< the user wants to leave the work
    std::chrono::milliseconds demora = std::chrono::seconds(1);             ///< what is over sooner is not shown
};

/// Sets where long work shows from here on; with an empty one it is done unseen.
void defineMostrador(MostradorDeAndamento mostrador);

/// Whether the user may leave a work by Esc before it is done.
enum class Esc { Ignora, Deixa };

/// A work that may take long, for the length of its life: it counts what it has done, and shows that it is on when it
/// takes longer than a second. A work inside another one is part of that and shows nothing of its own.
class Andamento
{
public:
    /// `obra` tells the user what is going on. `total` is asked only when the work turns out to be long; the clock,
    /// every `bloco` things done.
    Andamento(QString obra, std::function<int()> total, int bloco = 256, Esc esc = Esc::Ignora);
    ~Andamento();
    Andamento(const Andamento &) = delete;
    Andamento &operator=(const Andamento &) = delete;

    /// Cheap enough for every row of a loop.
    void avanca(int quantos = 1)
    {
        feitos_ += quantos;
        if (feitos_ >= olhaEm_) {
            olha();
        }
    }

    /// True from when the user has left the work. Whoever does it stops then, with what is done.
    bool deixado() const { return deixado_; }

private:
    using Relogio = std::chrono::steady_clock;

    void olha();

    QString obra_;
    std::function<int()> pergunta_;
    Relogio::time_point mostraEm_;
    int bloco_;
    int feitos_ = 0;
    int olhaEm_;
    int total_ = 0;
    Esc esc_;
    bool mostrado_ = false;
    bool deixado_ = false;
};

} // namespace core
