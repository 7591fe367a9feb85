#include "tests/walk/typing.h"

#include <array>
#include <initializer_list>
#include <span>

using namespace Qt::StringLiterals;

namespace walk
{

namespace
{

using Texts = std::span<const QStringView>;

constexpr auto codes = std::to_array<QStringView>({u"1", u"2", u"3", u"0004", u"7", u"12", u"0031", u"9999", u"0"});
constexpr auto vehicles = std::to_array<QStringView>({u"1", u"2", u"0003", u"11", u"ZZZ9999", u"QQQ1A23", u"9999"});
constexpr auto amounts =
    std::to_array<QStringView>({u"10", u"99,90", u"1.234,56", u"0", u"0,01", u"1000000", u"35", u"100,00"});
constexpr auto quantities = std::to_array<QStringView>({u"1", u"2", u"2,5", u"10", u"0", u"0,125"});
constexpr auto dates = std::to_array<QStringView>(
    {u"15/05/2024", u"16052024", u"01/06/2024", u"31/12/2024", u"1/1/24", u"31/02/2024", u"15/05/2023", u"020180"});
constexpr auto names = std::to_array<QStringView>(
    {u"MARIA", u"josé da silva", u"ANA", u"ZECA", u"a", u"OFICINA DO BAIRRO", u"GOL 1.0", u"ÁGUA", u"x y z"});
constexpr auto phones = std::to_array<QStringView>({u"1133334444", u"11987654321", u"(11) 3333-4444", u"123"});
constexpr auto documents = std::to_array<QStringView>({u"52998224725", u"11222333000181", u"11111111111", u"12"});
constexpr auto postal = std::to_array<QStringView>({u"01310100", u"01.310-100", u"99999999", u"013"});
constexpr auto years = std::to_array<QStringView>({u"1998", u"19981999", u"1998/1999", u"98", u"2024"});
constexpr auto parcels = std::to_array<QStringView>({u"1", u"01", u"2", u"12", u"99"});
constexpr auto operators = std::to_array<QStringView>({u"01", u"1", u"2", u"77"});
constexpr auto passwords = std::to_array<QStringView>({u"123456", u"ABC", u"654321"});

constexpr auto strange = std::to_array<QStringView>(
    {u"",           u" ",     u"'",          u"D'ÁVILA",
     u"\"",         u"*",     u"%",          u"0",
     u"-1",         u"-5,00", u"40000",      u"3000000000",
     u"1e300",      u"1,2,3", u"1.2.3",      u"ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZ",
     u"31/02/2024", u"#",     u"[",          u"ção",
     u"&A",         u"12:00", u"31/12/9999", u"01/01/0100",
     u"S",          u"N",     u"P"});

struct Fit {
    QStringView begin; ///< of the control's name
    Texts texts;
};

/// The first that fits counts.
const std::array fits = std::to_array<Fit>({
    {u"txtCodVeiculo", vehicles}, {u"txtCodPeca", codes},
    {u"txtCodCliente", codes},    {u"txtCodO", codes}, // of an order, of an estimate
    {u"txtCodForn", codes},       {u"txtOS", codes},
    {u"txtCodigo", operators},    {u"txtSenha", passwords},
    {u"txtConfirma", passwords},  {u"txtQuantidade", quantities},
    {u"txtEstoque", quantities},  {u"txtValor", amounts},
    {u"txtDesconto", amounts},    {u"txtDinheiro", amounts},
    {u"txtDuplicata", amounts},   {u"txtLimite", amounts},
    {u"txtCusto", amounts},       {u"txtVenda", amounts},
    {u"txtICMS", quantities},     {u"txtParcela", parcels},
    {u"txtData", dates},          {u"txtFone", phones},
    {u"txtCelular", phones},      {u"txtCPF", documents},
    {u"txtCEP", postal},          {u"txtAno", years},
    {u"txtA", amounts}, // in cheques
    {u"cboAno", years},           {u"txtHoras", quantities},
    {u"txtPDespesa", quantities}, {u"txtPTaxaLucro", quantities},
    {u"txtPISS", quantities},     {u"txtPSimples", quantities},
    {u"txtNumero", codes},        {u"txtKm", codes},
    {u"txtTexto", codes},
});

QStringList &plates()
{
    static QStringList known;
    return known;
}

QString oneOf(Texts texts, const Draw &draw)
{
    return texts[static_cast<std::size_t>(draw(static_cast<int>(texts.size())))].toString();
}

bool takesPlates(const QString &control)
{
    return control == u"txtCodVeiculo"_s || control == u"txtPlaca"_s;
}

} // namespace

void setPlates(const QStringList &known)
{
    plates() = known;
}

QString fitting(const QString &control, const Draw &draw)
{
    if (takesPlates(control) && !plates().isEmpty() && draw(3) == 0) {
        return plates().at(draw(static_cast<int>(plates().size())));
    }
    for (const auto &fit : fits) {
        if (control.startsWith(fit.begin)) {
            return oneOf(fit.texts, draw);
        }
    }
    return oneOf(names, draw);
}

QString anything(const Draw &draw)
{
    static const std::array pools = std::to_array<Texts>({codes, vehicles, amounts, dates, names, strange});
    return oneOf(pools[static_cast<std::size_t>(draw(static_cast<int>(pools.size())))], draw);
}

} // namespace walk
