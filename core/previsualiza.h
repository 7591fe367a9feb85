#pragma once

#include "platform/printer/surface.h"

#include <functional>

namespace core
{

/// Gives a sheet, counted from 0, whenever it is to be shown.
using FonteDeFolhas = std::function<printer::Page(int numero)>;

/// The preview window as page code sees it.
class PreVisualizador
{
public:
    virtual ~PreVisualizador() = default;

    /// Drops the pages of an earlier preview and gives the surface that the next pages are drawn on.
    virtual printer::Surface &comecaPaginas() = 0;

    /// Shows so many sheets instead of those of an earlier preview. None is asked for before the user comes to it.
    virtual void mostraFolhas(int total, FonteDeFolhas folhas) = 0;
};

/// Opens the preview window, not waited for, and gives its surface. Page code draws on it and calls EndDoc.
printer::Surface &AbrePreVisualizacao();

/// Opens the preview window, not waited for, with sheets that are made when they are shown.
void PreVisualiza(int total, FonteDeFolhas folhas);

} // namespace core
