#pragma once

namespace estimates
{

/// Makes the windows of this folder known to the directory of windows.
void registerForms();

} // namespace estimates
