#pragma once

namespace registers
{

/// Makes the windows of this folder known to the directory of windows.
void registerForms();

} // namespace registers
