#pragma once

namespace workorders
{

/// Makes the windows of this folder known to the directory of windows.
void registerForms();

} // namespace workorders
