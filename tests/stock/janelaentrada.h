#pragma once

#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

/// What the cases of the receipt of parts share: supplier 3 ALFA behind two that are gone, part 1 FILTRO by the piece,
/// part 2 OLEO by the litre, both under stock control, and service 3.
namespace entrada
{

using cadastro::Rows;

extern const QString null;
extern const QString question;

class Case : public QObject
{
    Q_OBJECT

protected:
    void prepare();
    void finish();

    ui::Form *open();

    /// Types a supplier's code and leaves the field; the same for a part's.
    void supplier(const QString &code = QStringLiteral("3"));
    void part(const QString &code);

    /// Adds a line as a clerk does. No code makes a free line of that description; a value left out is the part's cost.
    void add(const QString &code, const QString &quantity, const QString &value = {}, const QString &description = {});

    /// Confirms the note, which becomes that number.
    void save(int number = 1);

    /// One row of the list, its cells between bars, or all of them.
    QStringList shown() const;
    QString total() const { return support::text(window_, QStringLiteral("lblTotal")); }
    ui::ListView *list() const { return cadastro::list(window_); }
    bool hasFocus(const QString &name) const { return support::controlOf(window_, name)->hasFocus(); }

    /// What stands in the tables of notes.
    Rows notes() const { return program_->rows(QStringLiteral("SELECT * FROM NotasEntradas ORDER BY Codigo")); }
    Rows lines() const { return program_->rows(QStringLiteral("SELECT * FROM NotasPecas ORDER BY Codigo")); }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *window_ = nullptr;
};

} // namespace entrada
