#include "tools/amostra/catalogo.h"

#include <array>

namespace amostra
{

namespace
{

constexpr int unidade = 0;
constexpr int quilos = 1;
constexpr int litros = 2;
constexpr int galao = 3;
constexpr int pacote = 4;

constexpr auto tabelaModelos = std::to_array<Modelo>({
    {u"VW FUSCA 1300", 1970, 1984},
    {u"VW FUSCA 1600", 1985, 1996},
    {u"VW BRASÍLIA", 1974, 1981},
    {u"VW KOMBI STANDARD", 1985, 2012},
    {u"VW GOL 1.0", 1993, 2020},
    {u"VW GOL 1.6", 1987, 2020},
    {u"VW PARATI 1.8", 1986, 2005},
    {u"VW SAVEIRO 1.6", 1986, 2020},
    {u"VW SANTANA 2.0", 1986, 2005},
    {u"VW VOYAGE 1.6", 1984, 1995},
    {u"VW POLO 1.6", 2002, 2014},
    {u"VW FOX 1.0", 2004, 2020},
    {u"VW GOLF 1.6", 1999, 2013},
    {u"FIAT 147", 1977, 1986},
    {u"FIAT UNO MILLE 1.0", 1991, 2013},
    {u"FIAT UNO ELETRONIC", 1993, 1996},
    {u"FIAT PALIO 1.0", 1996, 2016},
    {u"FIAT PALIO WEEKEND 1.5", 1997, 2012},
    {u"FIAT SIENA 1.0", 1998, 2016},
    {u"FIAT STRADA 1.4", 1999, 2019},
    {u"FIAT TEMPRA 2.0", 1992, 1998},
    {u"FIAT TIPO 1.6", 1993, 1997},
    {u"FIAT MAREA 2.0", 1999, 2006},
    {u"FIAT FIORINO 1.3", 1990, 2013},
    {u"FIAT DUCATO 2.8", 1998, 2016, true},
    {u"GM CHEVETTE 1.6", 1978, 1993},
    {u"GM OPALA 4.1", 1975, 1992},
    {u"GM MONZA 1.8", 1983, 1996},
    {u"GM MONZA 2.0", 1987, 1996},
    {u"GM KADETT 1.8", 1989, 1998},
    {u"GM CORSA 1.0", 1994, 2012},
    {u"GM CORSA SEDAN 1.6", 1996, 2012},
    {u"GM CELTA 1.0", 2000, 2015},
    {u"GM VECTRA 2.0", 1994, 2011},
    {u"GM ASTRA 1.8", 1999, 2011},
    {u"GM OMEGA 2.2", 1993, 1998},
    {u"GM S10 2.4", 1996, 2011},
    {u"GM S10 2.8 DIESEL", 2000, 2018, true},
    {u"GM D20", 1986, 1996, true},
    {u"FORD CORCEL II", 1978, 1986},
    {u"FORD ESCORT 1.6", 1984, 1996},
    {u"FORD ESCORT 1.8", 1990, 2002},
    {u"FORD DEL REY", 1982, 1991},
    {u"FORD VERONA 1.8", 1990, 1996},
    {u"FORD FIESTA 1.0", 1996, 2014},
    {u"FORD KA 1.0", 1997, 2020},
    {u"FORD ECOSPORT 1.6", 2003, 2017},
    {u"FORD COURIER 1.6", 1998, 2013},
    {u"FORD F1000", 1986, 1998, true},
    {u"FORD RANGER 2.5 DIESEL", 1998, 2012, true},
    {u"TOYOTA COROLLA 1.8", 1998, 2019},
    {u"TOYOTA HILUX 3.0", 2002, 2019, true},
    {u"HONDA CIVIC 1.7", 1998, 2018},
    {u"RENAULT CLIO 1.0", 2000, 2015},
    {u"RENAULT SCÉNIC 1.6", 1999, 2010},
    {u"PEUGEOT 206 1.4", 2000, 2010},
    {u"CITROËN XSARA PICASSO", 2001, 2012},
    {u"MERCEDES 710", 1988, 2012, true},
    {u"KIA BESTA", 1994, 2005, true},
    {u"ASIA TOWNER", 1993, 1999},
});

constexpr auto tabelaPecasDeModelo = std::to_array<ItemCatalogo>({
    {u"PASTILHA DE FREIO DIANTEIRA", unidade, 2'850},
    {u"DISCO DE FREIO DIANTEIRO", unidade, 4'900},
    {u"LONA DE FREIO TRASEIRA", unidade, 2'400},
    {u"CILINDRO DE RODA", unidade, 2'100},
    {u"CILINDRO MESTRE", unidade, 7'800},
    {u"AMORTECEDOR DIANTEIRO", unidade, 9'400},
    {u"AMORTECEDOR TRASEIRO", unidade, 7'600},
    {u"KIT BATENTE E COIFA", unidade, 2'700},
    {u"MOLA DIANTEIRA", unidade, 6'200},
    {u"BANDEJA DE SUSPENSÃO", unidade, 8'300},
    {u"PIVÔ DE SUSPENSÃO", unidade, 2'900},
    {u"TERMINAL DE DIREÇÃO", unidade, 2'600},
    {u"BARRA AXIAL", unidade, 3'300},
    {u"CAIXA DE DIREÇÃO", unidade, 28'000},
    {u"BUCHA DA BANDEJA", unidade, 1'200},
    {u"COXIM DO MOTOR", unidade, 4'700},
    {u"COXIM DO CÂMBIO", unidade, 3'800},
    {u"CORREIA DENTADA", unidade, 2'300},
    {u"TENSOR DA CORREIA", unidade, 4'600},
    {u"CORREIA DO ALTERNADOR", unidade, 1'700},
    {u"BOMBA D ÁGUA", unidade, 6'400},
    {u"VÁLVULA TERMOSTÁTICA", unidade, 2'800},
    {u"RADIADOR", unidade, 18'500},
    {u"MANGUEIRA DO RADIADOR", unidade, 1'500},
    {u"JUNTA DO CABEÇOTE", unidade, 3'900},
    {u"JOGO DE JUNTAS DO MOTOR", unidade, 9'800},
    {u"JOGO DE ANÉIS", unidade, 8'700},
    {u"BRONZINA DE BIELA", unidade, 5'200},
    {u"BRONZINA DE MANCAL", unidade, 6'100},
    {u"RETENTOR DO COMANDO", unidade, 900},
    {u"RETENTOR DO VOLANTE", unidade, 2'100},
    {u"BOMBA DE ÓLEO", unidade, 9'300},
    {u"FILTRO DE AR", unidade, 1'300},
    {u"FILTRO DE ÓLEO", unidade, 900},
    {u"FILTRO DE COMBUSTÍVEL", unidade, 1'100},
    {u"BOMBA DE COMBUSTÍVEL", unidade, 10'900},
    {u"JOGO DE VELAS", unidade, 2'200},
    {u"JOGO DE CABOS DE VELA", unidade, 4'300},
    {u"TAMPA DO DISTRIBUIDOR", unidade, 1'600},
    {u"ROTOR DO DISTRIBUIDOR", unidade, 1'100},
    {u"BOBINA DE IGNIÇÃO", unidade, 7'200},
    {u"SENSOR DE TEMPERATURA", unidade, 2'700},
    {u"KIT DE EMBREAGEM", unidade, 17'400},
    {u"CABO DE EMBREAGEM", unidade, 1'900},
    {u"CABO DO ACELERADOR", unidade, 1'600},
    {u"CABO DO FREIO DE MÃO", unidade, 2'200},
    {u"JUNTA HOMOCINÉTICA", unidade, 8'900},
    {u"COIFA DA HOMOCINÉTICA", unidade, 1'400},
    {u"ROLAMENTO DE RODA DIANTEIRO", unidade, 4'100},
    {u"ROLAMENTO DE RODA TRASEIRO", unidade, 3'700},
    {u"CUBO DE RODA", unidade, 5'900},
    {u"SILENCIOSO TRASEIRO", unidade, 8'100},
    {u"CATALISADOR", unidade, 24'000},
    {u"PALHETA DO LIMPADOR", unidade, 1'200},
    {u"FAROL DIREITO", unidade, 9'600},
    {u"FAROL ESQUERDO", unidade, 9'600},
    {u"LANTERNA TRASEIRA", unidade, 5'300},
    {u"RETROVISOR", unidade, 4'800},
    {u"MAÇANETA EXTERNA", unidade, 2'300},
    {u"MÁQUINA DE VIDRO", unidade, 5'700},
});

constexpr auto tabelaPecasGerais = std::to_array<ItemCatalogo>({
    {u"ÓLEO DE MOTOR 20W50", litros, 850},
    {u"ÓLEO DE MOTOR 15W40", litros, 1'150},
    {u"ÓLEO DE MOTOR SINTÉTICO 5W30", litros, 2'600},
    {u"ÓLEO DE CÂMBIO 80W", litros, 1'300},
    {u"ÓLEO DE DIREÇÃO HIDRÁULICA", litros, 1'700},
    {u"FLUIDO DE FREIO DOT 4", unidade, 1'100},
    {u"ADITIVO DE RADIADOR", litros, 900},
    {u"ÁGUA DESMINERALIZADA", litros, 200},
    {u"QUEROSENE", litros, 600},
    {u"GRAXA PARA ROLAMENTO", quilos, 1'400},
    {u"ESTOPA", quilos, 700},
    {u"MASSA PLÁSTICA", quilos, 1'500},
    {u"TINTA AUTOMOTIVA", galao, 11'800},
    {u"THINNER", galao, 4'200},
    {u"SOLUÇÃO DE LIMPEZA", galao, 3'600},
    {u"LIXA D ÁGUA", pacote, 900},
    {u"ABRAÇADEIRA PLÁSTICA", pacote, 700},
    {u"FUSÍVEIS SORTIDOS", pacote, 500},
    {u"PARAFUSOS SORTIDOS", pacote, 1'000},
    {u"TERMINAIS ELÉTRICOS", pacote, 800},
    {u"LÂMPADA H4 60/55", unidade, 900},
    {u"LÂMPADA H7", unidade, 1'300},
    {u"LÂMPADA 2 POLOS", unidade, 200},
    {u"BATERIA 45 AH", unidade, 17'500},
    {u"BATERIA 60 AH", unidade, 22'500},
    {u"PNEU 175/70 R13", unidade, 13'800},
    {u"PNEU 185/65 R14", unidade, 17'600},
    {u"CÂMARA DE AR ARO 13", unidade, 2'100},
    {u"BICO DE PNEU", unidade, 150},
    {u"SILICONE ALTA TEMPERATURA", unidade, 900},
    {u"COLA PARA VEDAÇÃO", unidade, 1'300},
    {u"FITA ISOLANTE", unidade, 350},
    {u"EXTINTOR DE INCÊNDIO", unidade, 3'900},
    {u"TRIÂNGULO DE SINALIZAÇÃO", unidade, 1'100},
    {u"MACACO HIDRÁULICO", unidade, 8'400},
});

constexpr auto tabelaServicos = std::to_array<ItemCatalogo>({
    {u"TROCA DE ÓLEO E FILTRO", unidade, 1'500},
    {u"REVISÃO GERAL", unidade, 9'000},
    {u"REVISÃO DE FREIOS", unidade, 4'500},
    {u"TROCA DE PASTILHAS", unidade, 3'000},
    {u"TROCA DE AMORTECEDORES", unidade, 6'000},
    {u"ALINHAMENTO DE DIREÇÃO", unidade, 2'000},
    {u"BALANCEAMENTO POR RODA", unidade, 700},
    {u"CAMBAGEM", unidade, 2'500},
    {u"TROCA DE EMBREAGEM", unidade, 12'000},
    {u"TROCA DE CORREIA DENTADA", unidade, 7'500},
    {u"REGULAGEM DE MOTOR", unidade, 5'000},
    {u"LIMPEZA DE BICOS INJETORES", unidade, 6'000},
    {u"LIMPEZA DE CARBURADOR", unidade, 4'500},
    {u"RETÍFICA DE CABEÇOTE", unidade, 25'000},
    {u"RETÍFICA DE MOTOR", unidade, 90'000},
    {u"TROCA DE JUNTA DO CABEÇOTE", unidade, 18'000},
    {u"TROCA DE BOMBA D ÁGUA", unidade, 6'000},
    {u"LIMPEZA DO SISTEMA DE ARREFECIMENTO", unidade, 4'000},
    {u"TROCA DE RADIADOR", unidade, 5'000},
    {u"REPARO DO CÂMBIO", unidade, 30'000},
    {u"TROCA DE HOMOCINÉTICA", unidade, 5'500},
    {u"TROCA DE ROLAMENTO DE RODA", unidade, 4'500},
    {u"REPARO DA CAIXA DE DIREÇÃO", unidade, 14'000},
    {u"TROCA DE BUCHAS DA SUSPENSÃO", unidade, 6'500},
    {u"REVISÃO ELÉTRICA", unidade, 5'000},
    {u"REPARO DO ALTERNADOR", unidade, 8'000},
    {u"REPARO DO MOTOR DE PARTIDA", unidade, 7'500},
    {u"TROCA DE BATERIA", unidade, 1'000},
    {u"INSTALAÇÃO DE ALARME", unidade, 6'000},
    {u"INSTALAÇÃO DE SOM", unidade, 5'000},
    {u"REPARO DO LIMPADOR", unidade, 3'000},
    {u"TROCA DE LÂMPADAS", unidade, 500},
    {u"RECARGA DE AR CONDICIONADO", unidade, 9'000},
    {u"TROCA DE ESCAPAMENTO", unidade, 4'000},
    {u"SOLDA", unidade, 3'500},
    {u"FUNILARIA POR PEÇA", unidade, 15'000},
    {u"PINTURA POR PEÇA", unidade, 18'000},
    {u"POLIMENTO", unidade, 9'000},
    {u"TROCA DE FECHADURA", unidade, 3'500},
    {u"REPARO DA MÁQUINA DE VIDRO", unidade, 4'000},
    {u"MONTAGEM DE PNEU", unidade, 800},
    {u"CONSERTO DE PNEU", unidade, 1'000},
    {u"DIAGNÓSTICO ELETRÔNICO", unidade, 5'000},
    {u"SOCORRO MECÂNICO", unidade, 6'000},
    {u"LAVAGEM DO MOTOR", unidade, 2'500},
});

constexpr auto tabelaAvulsos = std::to_array<QStringView>({
    u"GUINCHO",
    u"TORNO EXTERNO",
    u"PEÇA USADA",
    u"MATERIAL DE LIMPEZA",
    u"VIDRACEIRO",
    u"TAPECEIRO",
    u"CHAVEIRO",
    u"DESPESAS DE VIAGEM",
});

constexpr auto tabelaCores = std::to_array<QStringView>({
    u"BRANCA",
    u"PRATA",
    u"PRETA",
    u"CINZA",
    u"VERMELHA",
    u"AZUL",
    u"VERDE",
    u"BEGE",
    u"AMARELA",
    u"VINHO",
    u"DOURADA",
});

constexpr auto tabelaQueixas = std::to_array<QStringView>({
    u"BARULHO NA SUSPENSÃO",
    u"FREIO PUXANDO PARA O LADO",
    u"MOTOR FALHANDO EM BAIXA",
    u"CARRO AQUECENDO",
    u"VAZAMENTO DE ÓLEO",
    u"LUZ DO ÓLEO ACESA",
    u"EMBREAGEM PATINANDO",
    u"NÃO PEGA DE MANHÃ",
    u"DIREÇÃO DURA",
    u"BATERIA DESCARREGANDO",
    u"REVISÃO PARA VIAGEM",
    u"CONSUMO ALTO DE COMBUSTÍVEL",
    u"TREPIDAÇÃO AO FREAR",
    u"CHEIRO DE GASOLINA",
    u"CÂMBIO ARRANHANDO A TERCEIRA",
    u"TROCA DE ÓLEO NO PRAZO",
});

constexpr auto tabelaMecanicos = std::to_array<QStringView>({
    u"ADEMIR",
    u"BETO",
    u"CARLÃO",
    u"DIRCEU",
    u"GILSON",
    u"NIVALDO",
    u"TONINHO",
    u"ZÉ ROBERTO",
});

constexpr auto tabelaBancos = std::to_array<QStringView>({
    u"BANCO DO BRASIL",
    u"BRADESCO",
    u"CAIXA ECONÔMICA FEDERAL",
    u"ITAÚ",
    u"SANTANDER",
    u"HSBC",
    u"NOSSA CAIXA",
    u"UNIBANCO",
});

constexpr auto tabelaFabricantes = std::to_array<QStringView>({
    u"BOS",
    u"CFP",
    u"COF",
    u"DYN",
    u"FRM",
    u"GAT",
    u"MGM",
    u"NAK",
    u"SAC",
    u"SKF",
    u"TRW",
    u"VLO",
});

constexpr auto tabelaRamosDeFornecedor = std::to_array<QStringView>({
    u"AUTO PEÇAS",
    u"DISTRIBUIDORA DE PEÇAS",
    u"COMERCIAL DE LUBRIFICANTES",
    u"CASA DAS BATERIAS",
    u"PNEUS E RODAS",
    u"RETÍFICA",
    u"TINTAS AUTOMOTIVAS",
    u"CENTRAL DOS FREIOS",
});

constexpr auto tabelaDespesas = std::to_array<DespesaMensal>({
    {u"ALUGUEL DO GALPÃO", 45'000, 1'500},
    {u"ENERGIA ELÉTRICA", 6'000, 900},
    {u"ÁGUA E ESGOTO", 2'500, 250},
    {u"TELEFONE", 5'000, 300},
    {u"CONTADOR", 10'000, 450},
    {u"SALÁRIOS", 0, 17'000},
    {u"FORNECEDORES DE PEÇAS", 0, 18'000},
    {u"IMPOSTOS", 0, 4'500},
});

} // namespace

std::span<const Modelo> modelos()
{
    return tabelaModelos;
}

std::span<const ItemCatalogo> pecasDeModelo()
{
    return tabelaPecasDeModelo;
}

std::span<const ItemCatalogo> pecasGerais()
{
    return tabelaPecasGerais;
}

std::span<const ItemCatalogo> servicos()
{
    return tabelaServicos;
}

std::span<const QStringView> avulsos()
{
    return tabelaAvulsos;
}

std::span<const QStringView> cores()
{
    return tabelaCores;
}

std::span<const QStringView> queixas()
{
    return tabelaQueixas;
}

std::span<const QStringView> mecanicos()
{
    return tabelaMecanicos;
}

std::span<const QStringView> bancos()
{
    return tabelaBancos;
}

std::span<const QStringView> fabricantes()
{
    return tabelaFabricantes;
}

std::span<const QStringView> ramosDeFornecedor()
{
    return tabelaRamosDeFornecedor;
}

std::span<const DespesaMensal> despesas()
{
    return tabelaDespesas;
}

} // namespace amostra
