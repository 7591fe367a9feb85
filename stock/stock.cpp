#include "stock/stock.h"

#include "stock/frmMoviEntradaPeca.h"
#include "stock/frmMoviEntradaPecaConsulta.h"
#include "stock/frmMoviEntradaPecaConsultaFornecedor.h"
#include "stock/frmMoviEstoque.h"

#include "core/devolucao.h"

namespace stock
{

using namespace Qt::StringLiterals;

void registerForms()
{
    core::RegistraJanela(u"frmMoviEntradaPeca"_s, [] { return new frmMoviEntradaPeca; });
    core::RegistraJanela(u"frmMoviEntradaPecaConsulta"_s, [] { return new frmMoviEntradaPecaConsulta; });
    core::RegistraJanela(u"frmMoviEntradaPecaConsultaFornecedor"_s,
                         [] { return new frmMoviEntradaPecaConsultaFornecedor; });
    core::RegistraJanela(u"frmMoviEstoque"_s, [] { return new frmMoviEstoque; });
}

} // namespace stock
