#include "core/previsualiza.h"

#include "platform/runtime/error.h"
#include "platform/ui/form.h"

using namespace Qt::StringLiterals;

namespace core
{

printer::Surface &AbrePreVisualizacao()
{
    constexpr int erroDeObjeto = 91;
    auto *janela = dynamic_cast<PreVisualizador *>(ui::Forms::instance().Show(u"frmRelaPreVisualiza"_s));
    if (janela == nullptr) {
        runtime::raise(erroDeObjeto);
    }
    return janela->comecaPaginas();
}

} // namespace core
