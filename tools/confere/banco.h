#pragma once

#include "platform/dao/database.h"
#include "platform/dao/inspection.h"
#include "platform/runtime/value.h"

#include <QHash>
#include <QSet>

#include <functional>
#include <optional>

namespace confere
{

/// The code that a column holds; nothing for Null.
std::optional<qint64> Codigo(const runtime::Value &valor);

/// A database as the checks read it: held still from the beginning to the end, by tables and not by indexes, which may
/// be what is damaged.
class Banco
{
public:
    explicit Banco(const QString &arquivo);

    const std::vector<dao::TableDef> &tabelas() const { return tabelas_; }
    bool tem(QStringView tabela) const { return definicao(tabela) != nullptr; }
    bool tem(QStringView tabela, const QStringList &colunas) const;

    /// Each row of a table: its values in the order of `colunas`.
    using Faz = std::function<void(const dao::Recordset &linha)>;
    void paraCada(QStringView tabela, const QStringList &colunas, const Faz &faz);

    /// What stands in a column of codes, without Null; read once.
    const QSet<qint64> &codigos(QStringView tabela, const QString &coluna);

    qint64 ultimoNumero(QStringView tabela) const { return exame_.lastNumber(tabela.toString()); }
    QStringList falhas() const { return exame_.faults(); }

private:
    const dao::TableDef *definicao(QStringView tabela) const;

    // In this order: opening a file again would take the lock from what holds it still.
    std::shared_ptr<dao::Database> banco_;
    dao::Inspection exame_;
    std::vector<dao::TableDef> tabelas_;
    QHash<QString, QSet<qint64>> codigos_;
};

} // namespace confere
