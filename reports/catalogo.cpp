#include "reports/catalogo.h"

#include "reports/relacheques.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace reports
{

std::span<const Relatorio> Catalogo()
{
    static const std::vector<Relatorio> todos = [] {
        std::vector<Relatorio> reunidos;
        for (const auto relatorios : {relatoriosDeCheques()}) {
            std::ranges::copy(relatorios, std::back_inserter(reunidos));
        }
        return reunidos;
    }();
    return todos;
}

} // namespace reports
