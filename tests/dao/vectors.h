#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <vector>

/// The rows of tests/vectors/NAME.tsv behind its header line, each cut at its tabs.
inline std::vector<QStringList> readVectors(const QString &name)
{
    QFile file(QStringLiteral(TARVELO_TESTS_DIR "/vectors/") + name);
    std::vector<QStringList> rows;
    if (!file.open(QIODevice::ReadOnly)) {
        return rows;
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (!lines[i].isEmpty()) {
            rows.push_back(lines[i].split(u'\t'));
        }
    }
    return rows;
}
