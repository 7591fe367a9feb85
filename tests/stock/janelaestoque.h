#pragma once

#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

/// What the cases of the stock window share: one part under stock control, counted in pieces, with its opening row.
namespace estoque
{

using cadastro::Rows;

extern const QString null;

class Case : public QObject
{
    Q_OBJECT

protected:
    void prepare();
    void finish();

    ui::Form *open(qint16 mode = 0, qint32 part = 0);

    /// Types a code and leaves the field.
    void choose(const QString &code);

    /// Fills a movement in, leaving its fields as a clerk does.
    void fill(const QString &option, const QString &date, const QString &text, const QString &quantity);

    /// The same, posted.
    void post(const QString &option, const QString &quantity);

    /// A row as another writer leaves it.
    void row(const QString &date, const QString &text, const QString &in, const QString &out, const QString &balance,
             qint32 part = 1);

    /// Text, in, out and balance of all rows, or of those behind the opening one.
    Rows ledger() const;
    Rows posted() const;

    bool hasFocus(const QString &name) const;
    ui::ListView *list() const { return cadastro::list(window_); }

    /// The rows of the list, each as one text with its cells between bars.
    QStringList shown() const;

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *window_ = nullptr;
    qint32 part_ = 0;
};

} // namespace estoque
