#include "registers/estados.h"

#include <QComboBox>

#include <array>

namespace registers
{

namespace
{

constexpr std::array<QStringView, 26> estados{u"AC", u"AL", u"AM", u"AP", u"BA", u"CE", u"DF", u"ES", u"GO",
                                              u"MA", u"MG", u"MS", u"MT", u"PA", u"PB", u"PI", u"PR", u"RJ",
                                              u"RN", u"RO", u"RR", u"RS", u"SC", u"SE", u"SP", u"TO"};

} // namespace

void PreencheEstados(QComboBox *combo)
{
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr); // a typed code stands as typed
    combo->clear();
    for (const QStringView estado : estados) {
        combo->addItem(estado.toString());
    }
    combo->setCurrentIndex(estadoInicial);
}

} // namespace registers
