#include "stock/stock.h"

#include "stock/frmMoviEstoque.h"

#include "platform/ui/forms.h"

namespace stock
{

using namespace Qt::StringLiterals;

void registerForms()
{
    ui::Forms::instance().add(u"frmMoviEstoque"_s, [] { return new frmMoviEstoque; });
}

} // namespace stock
