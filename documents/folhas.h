#pragma once

#include "documents/impressao.h"

namespace documents
{

/// The sheets of a document in the second and third layout. Each begins with the logo, the title and the header, and
/// ends at 26 cm with a rule and the workshop's address. Positions are in centimetres.
class Folhas
{
public:
    /// Below a long header the blank line gives way where `linhasNecessarias` lines would not fit otherwise.
    Folhas(printer::Surface &saida, const Documento &documento, int linhasNecessarias = 0);

    /// Begins a sheet; the next line stands below the header.
    void abre();

    /// Ends a sheet with its foot.
    void fecha();

    /// Ends this sheet and begins the next one.
    void vira();

    /// True when so many lines of the present font fit above the foot.
    bool cabe(qsizetype linhas = 1) const;

    /// The lines behind the items, each block on one sheet if it fits on one.
    void imprime(const QList<Bloco> &blocos);

    printer::Surface &saida() const { return saida_; }

private:
    void imprimeLogo();
    void imprimeTitulo();

    printer::Surface &saida_;
    const Documento &documento_;
    int linhasNecessarias_;
};

} // namespace documents
