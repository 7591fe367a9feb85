#pragma once

#include "support/boxes.h"

#include <QStringList>

#include <functional>

class QWidget;

/// Orders opened and closed, as the subjects need them.
namespace demonstracao
{

/// The vehicle that the orders are for; it is registered on the way to the first of them.
inline const QString plate = QStringLiteral("ABC1D23");

/// Adds an item by hand to the order that is being opened, or in another window with items.
void addItem(const QString &quantity, const QString &description, const QString &value,
             const QString &window = QStringLiteral("frmOSAbre"));

/// Writes the order on the screen and gives its number, four digits.
QString includeOrder(support::Boxes &boxes);

/// An order of R$ 400,00 for the vehicle of that plate.
QString openOrder(support::Boxes &boxes, const QString &vehicle);

/// Chooses an order in the list of the query window.
void showOrder(const QString &code);

/// How an order is paid: the tab of the payment window, what is filled in there, the boxes that follow.
struct Pagamento {
    int tab = 0;
    std::function<void(QWidget *window)> fill{};
    QStringList chequeNumbers{};
    bool print = false;
    QString picture{}; ///< of the payment window; the tab's number where none is named
};
void closeOrder(support::Boxes &boxes, const QString &code, const Pagamento &payment);

} // namespace demonstracao
