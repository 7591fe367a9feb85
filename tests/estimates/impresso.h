#pragma once

#include "estimates/orcamentoimpresso.h"
#include "support/program.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <array>
#include <memory>

/// What the cases on the printed estimate share: one to print, and what is expected, in whole cents and without a
/// float.
namespace impresso
{

extern const QString columns;
extern const QString heading;
extern const QString text1;
extern const QString text2;

/// So many items of one kind, each with its number.
std::vector<documents::LinhaItem> items(int count);

/// Estimate 0042 with two items.
estimates::Orcamento estimate(const QString &value = QStringLiteral("1.234,56"));

/// The settings as the options stand: true is the chosen "Sim".
struct Settings {
    std::array<bool, 5> yes{};
    int percent = 0; ///< of interest
    int instalments = 6;
};

/// The lines of the payment. The discount is 10 %.
QStringList conditions(qint64 cents, const Settings &set);

/// The sheet of `estimate` with these lines behind its total: with the frame, or as plain text.
QStringList wholeSheet(int layout, const QStringList &behindTheTotal);

/// The document that an estimate is printed as.
QStringList printed(int layout, const estimates::Orcamento &estimate);

/// Tells the whole texts where they differ.
void compare(const QStringList &found, const QStringList &expected, const QString &what = {});

/// The lines of the payment alone.
QStringList paymentOf(const QStringList &lines);

/// A workshop with its address and a discount of 10 %.
class Case : public QObject
{
    Q_OBJECT

protected:
    void prepare();
    void finish() { program_.reset(); }

    void set(const QString &section, const QString &key, const QString &value);
    void apply(const Settings &settings);

    /// A row for each of the three layouts.
    static void layouts();

    std::unique_ptr<support::Program> program_;

private:
    QHash<QString, QString> written_; ///< a write of a setting replaces the whole file
};

} // namespace impresso
