#include "core/previsualiza.h"

#include "platform/runtime/error.h"
#include "platform/ui/form.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

PreVisualizador &janelaAberta()
{
    constexpr int erroDeObjeto = 91;
    auto *janela = dynamic_cast<PreVisualizador *>(ui::Forms::instance().Show(u"frmRelaPreVisualiza"_s));
    if (janela == nullptr) {
        runtime::raise(erroDeObjeto);
    }
    return *janela;
}

} // namespace

printer::Surface &AbrePreVisualizacao()
{
    return janelaAberta().comecaPaginas();
}

void PreVisualiza(int total, FonteDeFolhas folhas)
{
    janelaAberta().mostraFolhas(total, std::move(folhas));
}

} // namespace core
