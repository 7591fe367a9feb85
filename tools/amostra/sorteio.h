#pragma once

#include <QtGlobal>

#include <cstddef>
#include <random>
#include <unordered_set>
#include <utility>
#include <vector>

namespace amostra
{

/// The draws of a sample. The generator is laid down by the language and the ranges are made here, since the library's
/// own distributions differ from one compiler to the next: a seed gives the same draws everywhere.
class Sorteio
{
public:
    /// Each `assunto` has draws of its own, so that more customers don't change the parts.
    Sorteio(quint64 semente, quint64 assunto) : gerador_(mistura(semente * 64 + assunto)) {}

    quint64 abaixo(quint64 limite) { return gerador_() % limite; } ///< 0 to `limite` - 1
    int entre(int menor, int maior)
    {
        return menor + static_cast<int>(abaixo(static_cast<quint64>(maior - menor) + 1));
    }
    bool chance(int porCento) { return entre(1, 100) <= porCento; }

    /// An entry of an array, a vector or a span of one.
    template<class Tabela>
    const auto &um(const Tabela &tabela)
    {
        return tabela[static_cast<std::size_t>(abaixo(tabela.size()))];
    }

    template<class T>
    void embaralha(std::vector<T> &itens)
    {
        for (std::size_t i = itens.size(); i > 1; --i) {
            std::swap(itens[i - 1], itens[static_cast<std::size_t>(abaixo(i))]);
        }
    }

private:
    /// Neighbouring seeds would begin alike otherwise.
    static quint64 mistura(quint64 x)
    {
        x = (x ^ (x >> 30U)) * 0xbf58476d1ce4e5b9U;
        x = (x ^ (x >> 27U)) * 0x94d049bb133111ebU;
        return x ^ (x >> 31U);
    }

    std::mt19937_64 gerador_;
};

/// Numbers that are never given twice: documents, plates.
class SemRepetir
{
public:
    /// From 1 to `maior`, which has to be well above the count of numbers taken.
    quint64 novo(Sorteio &sorteio, quint64 maior)
    {
        for (;;) {
            const quint64 numero = 1 + sorteio.abaixo(maior);
            if (dados_.insert(numero).second) {
                return numero;
            }
        }
    }

private:
    std::unordered_set<quint64> dados_;
};

} // namespace amostra
