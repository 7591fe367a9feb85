#pragma once

#include "registers/registro.h"

#include "core/funcoes.h"

#include <algorithm>
#include <array>

/// What customers and suppliers have alike: where they are, how they are reached, and how they are searched by that.
namespace registers
{

inline constexpr std::array camposDeContato{
    Campo{u"txtEndereco", u"Endereco", core::comoEsta, core::ouNulo},
    Campo{u"txtNumero", u"Numero", core::comoEsta, core::ouNulo, core::SoDecimais},
    Campo{u"txtComplemento", u"Complemento", core::comoEsta, core::ouNulo},
    Campo{u"txtBairro", u"Bairro", core::comoEsta, core::ouNulo},
    Campo{u"txtCidade", u"Cidade", core::comoEsta, core::ouNulo},
    Campo{u"cboEstado", u"Estado", core::comoEsta, core::comoTexto},
    Campo{u"txtCEP", u"CEP", core::comoEsta, core::ouNulo, core::SoInteiros, core::TipoMascara::CEP},
    Campo{u"txtPontoReferencia", u"PontoReferencia", core::comoEsta, core::ouNulo},
    Campo{u"txtFone1", u"Fone1", core::comoEsta, core::ouNulo, core::SoInteiros, core::TipoMascara::Fone},
    Campo{u"txtFone2", u"Fone2", core::comoEsta, core::ouNulo, core::SoInteiros, core::TipoMascara::Fone},
    Campo{u"txtCelular", u"Celular", core::comoEsta, core::ouNulo, core::SoInteiros, core::TipoMascara::Fone},
};

inline constexpr std::array pesquisasDeContato{
    Pesquisa{u"Código", u"Codigo LIKE ", Comparacao::Igual},
    Pesquisa{u"Data Cadastro", u"DataCadastro = ", Comparacao::Data},
    Pesquisa{u"Nome", u"Nome LIKE '*", Comparacao::Contem},
    Pesquisa{u"Endereço", u"Endereco LIKE '*", Comparacao::Contem},
    Pesquisa{u"Bairro", u"Bairro LIKE '*", Comparacao::Contem},
    Pesquisa{u"Cidade", u"Cidade LIKE '*", Comparacao::Contem},
    Pesquisa{u"Estado", u"Estado LIKE '*", Comparacao::Contem},
    Pesquisa{u"CEP", u"CEP LIKE '*", Comparacao::Contem},
    Pesquisa{u"Fone1", u"Fone1 LIKE '*", Comparacao::Contem},
    Pesquisa{u"Fone2", u"Fone2 LIKE '*", Comparacao::Contem},
    Pesquisa{u"Celular", u"Celular LIKE '*", Comparacao::Contem},
};

/// The rows of several tables as one.
template<class T, std::size_t... N>
constexpr auto junta(const std::array<T, N> &...partes)
{
    std::array<T, (N + ...)> todas{};
    auto lugar = todas.begin();
    ((lugar = std::copy(partes.begin(), partes.end(), lugar)), ...);
    return todas;
}

} // namespace registers
