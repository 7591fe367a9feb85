#pragma once

#include "platform/printer/surface.h"

namespace core
{

/// The preview window as page code sees it.
class PreVisualizador
{
public:
    virtual ~PreVisualizador() = default;

    /// Drops the pages of an earlier preview and gives the surface that the next pages are drawn on.
    virtual printer::Surface &comecaPaginas() = 0;
};

/// Opens the preview window, not waited for, and gives its surface. Page code draws on it and calls EndDoc.
printer::Surface &AbrePreVisualizacao();

} // namespace core
