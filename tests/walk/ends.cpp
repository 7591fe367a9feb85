#include "tests/walk/ends.h"

#include <QRegularExpression>

#include <array>

using namespace Qt::StringLiterals;

namespace walk
{

namespace
{

/// An error that ends the program by right: where it comes up and why nothing traps it.
struct ToldEnd {
    int number;
    QStringView description; ///< a pattern for the whole text; empty for any
    QStringView window;      ///< a pattern for the whole name; empty for any
    QStringView reason;
};

constexpr auto toldEnds = std::to_array<ToldEnd>({
    {3075, u".*'.*'.*", {}, u"an apostrophe goes into the statement as it stands, and breaks it"},
    {3421, {}, u"frmOSFormaPagto", u"a discount that is no number passes its check and meets the column"},
    {3421, {}, u"frmCadaCliente|frmCadaFornecedor|frmCadaFast", u"a house number goes beyond its 16 bits"},
    {3421, {}, u"frmCadaPecas", u"a tax goes beyond its 16 bits"},
    {13, {}, u"frmMoviEstoque", u"a part without a row in the ledger has no balance to add to"},
    {13, {}, u"frmMoviCheques|frmMoviFiados", u"an empty cash book has no balance to add to"},
});

bool matches(QStringView pattern, const QString &text)
{
    if (pattern.isEmpty()) {
        return true;
    }
    const auto whole = QRegularExpression::anchoredPattern(pattern);
    return QRegularExpression(whole, QRegularExpression::DotMatchesEverythingOption).match(text).hasMatch();
}

} // namespace

ErrorBox readErrorBox(const QString &text, const QString &window)
{
    static const QRegularExpression form(u"^Erro em tempo de execução '(\\d+)':\\s+(.*)$"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    const auto match = form.match(text);
    return {.number = match.captured(1).toInt(), .description = match.captured(2), .window = window};
}

QString reasonOf(const ErrorBox &box)
{
    for (const auto &end : toldEnds) {
        if (end.number == box.number && matches(end.description, box.description) && matches(end.window, box.window)) {
            return end.reason.toString();
        }
    }
    return {};
}

} // namespace walk
