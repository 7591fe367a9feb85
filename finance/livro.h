#pragma once

#include "core/campos.h"
#include "core/funcoes.h"
#include "core/lista.h"

#include <array>

/// What the windows of ledgers of money share: the columns of their lists, the boxes of a movement and their checks.
namespace finance
{

inline constexpr std::array colunasDoLivro{
    core::ColunaLista{u"", 280, u"Codigo", core::comoCodigo},
    core::ColunaLista{u"Data", 1300, u"Data", core::comoData},
    core::ColunaLista{u"Descrição", 3400, u"Descricao", core::comoEsta},
    core::ColunaLista{u"Entrada", 1500, u"Entrada", core::comoValorOuBranco, Qt::AlignRight},
    core::ColunaLista{u"Saída", 1500, u"Saida", core::comoValorOuBranco, Qt::AlignRight},
    core::ColunaLista{u"Saldo", 1500, u"Saldo", core::comoValor, Qt::AlignRight},
};

/// The places of the columns in the list.
inline constexpr int colunaData = 1;
inline constexpr int colunaDescricao = 2;
inline constexpr int colunaEntrada = 3;
inline constexpr int colunaSaida = 4;
inline constexpr int colunaSaldo = 5;

inline constexpr std::array camposDoLivro{
    core::Campo{.controle = u"txtData",
                .coluna = u"Data",
                .grava = core::comoTexto,
                .data = core::RegrasDaData{.saida = core::SaidaDaData::FormataDatas}},
    core::Campo{.controle = u"txtDescricao", .coluna = u"Descricao", .grava = core::comoTexto},
    core::Campo{.controle = u"txtValor", .coluna = {}, .tecla = core::SoDecimais, .mascara = core::TipoMascara::Valor},
};

} // namespace finance
