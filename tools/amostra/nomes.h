#pragma once

#include <QStringView>

#include <span>

/// People and places of the sample, in capitals as the windows store what is typed.
namespace amostra
{

std::span<const QStringView> prenomes();
std::span<const QStringView> sobrenomes();
std::span<const QStringView> ramos(); ///< what a company's name begins with
std::span<const QStringView> logradouros();
std::span<const QStringView> bairros();
std::span<const QStringView> referencias();
std::span<const QStringView> provedores();

struct Cidade {
    QStringView nome;
    QStringView estado;
    int ddd;
    int cep;   ///< the first five digits of its lowest postal code
    int faixa; ///< how many of them it has
};

/// The first one is where the workshop stands.
std::span<const Cidade> cidades();

} // namespace amostra
