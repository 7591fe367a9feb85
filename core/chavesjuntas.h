#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace core
{

/// Writes keys of one section that one answer of the user changes, scrambled, in one go: a kill or a full disk leaves
/// all of them as they were or all as they are to be. Errors pass silently.
void GravaJuntas(const QString &secao, const std::vector<std::pair<QString, QString>> &chaves);

} // namespace core
