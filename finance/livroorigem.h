#pragma once

#include "core/campos.h"
#include "core/funcoes.h"

#include <array>

/// The origin book without its window: its boxes and the columns that they are written to. Whoever writes a row writes
/// it by these.
namespace finance
{

inline constexpr std::array<QStringView, 4> valoresDaOrigem{u"txtDinheiro", u"txtAvista", u"txtAPrazo",
                                                            u"txtDuplicata"};

constexpr core::Campo campoDeValor(QStringView controle, QStringView coluna)
{
    return {.controle = controle,
            .coluna = coluna,
            .grava = core::comoTexto,
            .tecla = core::SoDecimais,
            .mascara = core::TipoMascara::Valor};
}

inline constexpr std::array camposDaOrigem{
    core::Campo{.controle = u"txtData", .coluna = u"Data", .grava = core::comoTexto, .data = core::RegrasDaData{}},
    core::Campo{.controle = u"txtOrigem", .coluna = u"Origem", .grava = core::comoTexto},
    campoDeValor(valoresDaOrigem[0], u"Dinheiro"),
    campoDeValor(valoresDaOrigem[1], u"Avista"),
    campoDeValor(valoresDaOrigem[2], u"Aprazo"),
    campoDeValor(valoresDaOrigem[3], u"Duplicata"),
};

} // namespace finance
