#pragma once

#include "core/ajustes.h"

namespace shell
{

/// The setting that a command of the menus asks for, by the command's name; none for a command of another kind.
const core::Ajuste *ajusteDe(QStringView item);

} // namespace shell
