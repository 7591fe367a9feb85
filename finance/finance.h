#pragma once

namespace finance
{

/// Makes the windows of this folder known to the directory of windows.
void registerForms();

} // namespace finance
