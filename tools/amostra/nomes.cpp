#include "tools/amostra/nomes.h"

#include <array>

namespace amostra
{

namespace
{

constexpr auto tabelaPrenomes = std::to_array<QStringView>({
    u"ADRIANA",   u"ALESSANDRA", u"ALEXANDRE", u"ALICE",    u"AMANDA",  u"ANA LÚCIA", u"ANA MARIA", u"ANDRÉ",
    u"ANTÔNIO",   u"APARECIDA",  u"BEATRIZ",   u"BENEDITO", u"BRUNO",   u"CAMILA",    u"CARLOS",    u"CÉLIA",
    u"CELSO",     u"CLÁUDIA",    u"CLÁUDIO",   u"CRISTINA", u"DANIEL",  u"DÉBORA",    u"DENISE",    u"DIEGO",
    u"EDSON",     u"EDUARDO",    u"ELAINE",    u"ELIANE",   u"EMERSON", u"FABIANA",   u"FÁBIO",     u"FELIPE",
    u"FERNANDA",  u"FERNANDO",   u"FRANCISCO", u"GABRIELA", u"GERALDO", u"GILBERTO",  u"GUSTAVO",   u"HELENA",
    u"HENRIQUE",  u"IRENE",      u"ISABEL",    u"IVONE",    u"JAIR",    u"JOÃO",      u"JOAQUIM",   u"JORGE",
    u"JOSÉ",      u"JOSEFA",     u"JULIANA",   u"JÚLIO",    u"LEANDRO", u"LEONARDO",  u"LETÍCIA",   u"LÚCIA",
    u"LUCIANA",   u"LUÍS",       u"LUIZ",      u"MARCELO",  u"MÁRCIA",  u"MÁRCIO",    u"MARCOS",    u"MARIA",
    u"MARIANA",   u"MÁRIO",      u"MAURÍCIO",  u"MÔNICA",   u"NATÁLIA", u"NELSON",    u"ODAIR",     u"OSVALDO",
    u"PATRÍCIA",  u"PAULA",      u"PAULO",     u"PEDRO",    u"RAFAEL",  u"RAIMUNDO",  u"REGINA",    u"RENATA",
    u"RENATO",    u"RICARDO",    u"RITA",      u"ROBERTO",  u"RODRIGO", u"ROGÉRIO",   u"ROSANA",    u"SANDRA",
    u"SEBASTIÃO", u"SÉRGIO",     u"SILVANA",   u"SIMONE",   u"SÔNIA",   u"TATIANE",   u"TEREZINHA", u"THIAGO",
    u"VALDIR",    u"VANDERLEI",  u"VANESSA",   u"VERA",     u"VICENTE", u"VINÍCIUS",  u"WAGNER",    u"WILSON",
});

constexpr auto tabelaSobrenomes = std::to_array<QStringView>({
    u"ALMEIDA",    u"ALVES",    u"AMARAL",  u"ANDRADE",  u"ANTUNES",   u"ARAÚJO",    u"ARRUDA",      u"AZEVEDO",
    u"BARBOSA",    u"BARROS",   u"BATISTA", u"BIANCHI",  u"BORGES",    u"BRITO",     u"BUENO",       u"CALDEIRA",
    u"CAMARGO",    u"CAMPOS",   u"CARDOSO", u"CARVALHO", u"CASTRO",    u"CORRÊA",    u"COSTA",       u"CUNHA",
    u"DIAS",       u"DUARTE",   u"ESTEVES", u"FARIA",    u"FERNANDES", u"FERRARI",   u"FERREIRA",    u"FONSECA",
    u"FRANCO",     u"FREITAS",  u"GARCIA",  u"GOMES",    u"GONÇALVES", u"GUIMARÃES", u"LEITE",       u"LEMOS",
    u"LIMA",       u"LOPES",    u"MACEDO",  u"MACHADO",  u"MAGALHÃES", u"MARQUES",   u"MARTINS",     u"MEDEIROS",
    u"MELO",       u"MENDES",   u"MIRANDA", u"MONTEIRO", u"MORAES",    u"MOREIRA",   u"MOURA",       u"NAKAMURA",
    u"NASCIMENTO", u"NOGUEIRA", u"NUNES",   u"OLIVEIRA", u"PACHECO",   u"PEREIRA",   u"PINTO",       u"PIRES",
    u"PRADO",      u"QUEIROZ",  u"RAMOS",   u"REIS",     u"RIBEIRO",   u"ROCHA",     u"RODRIGUES",   u"ROSSI",
    u"SALGADO",    u"SANTANA",  u"SANTOS",  u"SATO",     u"SILVA",     u"SILVEIRA",  u"SIQUEIRA",    u"SOARES",
    u"SOUZA",      u"TANAKA",   u"TAVARES", u"TEIXEIRA", u"TOLEDO",    u"VALENTE",   u"VASCONCELOS", u"VIEIRA",
});

constexpr auto tabelaRamos = std::to_array<QStringView>({
    u"TRANSPORTADORA", u"PADARIA",         u"SUPERMERCADO",        u"CONSTRUTORA", u"DISTRIBUIDORA", u"AUTO ESCOLA",
    u"FARMÁCIA",       u"METALÚRGICA",     u"MATERIAIS ELÉTRICOS", u"LOCADORA",    u"IMOBILIÁRIA",   u"GRÁFICA",
    u"RESTAURANTE",    u"COMÉRCIO DE GÁS", u"AGROPECUÁRIA",        u"MÓVEIS",      u"LAVANDERIA",    u"PAPELARIA",
    u"CERÂMICA",       u"VIAÇÃO",
});

constexpr auto tabelaLogradouros = std::to_array<QStringView>({
    u"RUA XV DE NOVEMBRO",
    u"RUA SETE DE SETEMBRO",
    u"RUA TREZE DE MAIO",
    u"RUA TIRADENTES",
    u"RUA MARECHAL DEODORO",
    u"RUA BENJAMIN CONSTANT",
    u"RUA RUI BARBOSA",
    u"RUA DOM PEDRO II",
    u"RUA SÃO JOÃO",
    u"RUA SANTA CRUZ",
    u"RUA BARÃO DO RIO BRANCO",
    u"RUA GENERAL OSÓRIO",
    u"RUA DUQUE DE CAXIAS",
    u"RUA VISCONDE DE INHAÚMA",
    u"RUA PRUDENTE DE MORAES",
    u"RUA CAMPOS SALES",
    u"RUA FLORIANO PEIXOTO",
    u"RUA QUINTINO BOCAIÚVA",
    u"RUA PADRE ANCHIETA",
    u"RUA CORONEL JOSÉ AUGUSTO",
    u"RUA DAS PALMEIRAS",
    u"RUA DAS ACÁCIAS",
    u"RUA DOS IPÊS",
    u"RUA DOS EXPEDICIONÁRIOS",
    u"RUA MINAS GERAIS",
    u"RUA PARANÁ",
    u"RUA BAHIA",
    u"RUA ITÁLIA",
    u"RUA PORTUGAL",
    u"RUA JAPÃO",
    u"AVENIDA BRASIL",
    u"AVENIDA SÃO PAULO",
    u"AVENIDA GETÚLIO VARGAS",
    u"AVENIDA JUSCELINO KUBITSCHEK",
    u"AVENIDA DOS TRABALHADORES",
    u"AVENIDA INDEPENDÊNCIA",
    u"AVENIDA DOUTOR CARLOS BOTELHO",
    u"AVENIDA SALGADO FILHO",
    u"ALAMEDA DOS CRISÂNTEMOS",
    u"ALAMEDA SANTOS DUMONT",
    u"TRAVESSA DO COMÉRCIO",
    u"PRAÇA DA MATRIZ",
    u"RODOVIA WASHINGTON LUÍS",
    u"ESTRADA DO BROA",
});

constexpr auto tabelaBairros = std::to_array<QStringView>({
    u"CENTRO",        u"VILA NOVA",        u"JARDIM PAULISTA", u"VILA PRADO",          u"JARDIM AMÉRICA",
    u"CIDADE JARDIM", u"VILA INDUSTRIAL",  u"JARDIM BRASIL",   u"PARQUE SANTA MÔNICA", u"SANTA FELÍCIA",
    u"VILA SÃO JOSÉ", u"JARDIM PRIMAVERA", u"BOA VISTA",       u"PARQUE DAS NAÇÕES",   u"JARDIM IPANEMA",
    u"VILA MARIANA",  u"CHÁCARA DO LAGO",  u"JARDIM EUROPA",   u"DISTRITO INDUSTRIAL", u"CONJUNTO HABITACIONAL",
});

constexpr auto tabelaReferencias = std::to_array<QStringView>({
    u"PRÓXIMO À ESCOLA",
    u"AO LADO DO POSTO",
    u"EM FRENTE À PRAÇA",
    u"ATRÁS DA IGREJA",
    u"PERTO DO MERCADO",
    u"ESQUINA COM A AVENIDA",
    u"PORTÃO VERDE",
    u"FUNDOS",
});

constexpr auto tabelaProvedores = std::to_array<QStringView>({
    u"provedor.example",
    u"correio.example",
    u"rede.example",
    u"casa.example",
});

constexpr auto tabelaCidades = std::to_array<Cidade>({
    {u"SÃO CARLOS", u"SP", 16, 13560, 15},
    {u"ARARAQUARA", u"SP", 16, 14800, 11},
    {u"IBATÉ", u"SP", 16, 14815, 1},
    {u"RIBEIRÃO PRETO", u"SP", 16, 14010, 80},
    {u"RIO CLARO", u"SP", 19, 13500, 6},
    {u"PIRACICABA", u"SP", 19, 13400, 32},
    {u"CAMPINAS", u"SP", 19, 13010, 90},
    {u"LIMEIRA", u"SP", 19, 13480, 8},
    {u"JAÚ", u"SP", 14, 17201, 20},
    {u"BAURU", u"SP", 14, 17010, 70},
    {u"SÃO PAULO", u"SP", 11, 1001, 5000},
    {u"UBERABA", u"MG", 34, 38010, 60},
    {u"POÇOS DE CALDAS", u"MG", 35, 37701, 16},
    {u"LONDRINA", u"PR", 43, 86010, 80},
});

} // namespace

std::span<const QStringView> prenomes()
{
    return tabelaPrenomes;
}

std::span<const QStringView> sobrenomes()
{
    return tabelaSobrenomes;
}

std::span<const QStringView> ramos()
{
    return tabelaRamos;
}

std::span<const QStringView> logradouros()
{
    return tabelaLogradouros;
}

std::span<const QStringView> bairros()
{
    return tabelaBairros;
}

std::span<const QStringView> referencias()
{
    return tabelaReferencias;
}

std::span<const QStringView> provedores()
{
    return tabelaProvedores;
}

std::span<const Cidade> cidades()
{
    return tabelaCidades;
}

} // namespace amostra
