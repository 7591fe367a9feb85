#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>
#include <QStringList>

#include <exception>
#include <optional>

namespace ceps
{

/// Why a file can't be taken over, in words for the user. With a line number where a line is to blame.
class Erro : public std::exception
{
public:
    explicit Erro(QString texto);
    Erro(int linha, const QString &motivo);

    const QString &texto() const { return texto_; }
    const char *what() const noexcept override { return utf8_.constData(); }

private:
    QString texto_;
    QByteArray utf8_;
};

enum class Codificacao { Utf8, Windows1252 };

/// Cuts a line into its columns, each without the blanks around it. A column in quotation marks may hold the
/// separator, and a quotation mark written twice. Nothing where the quotation marks don't match.
std::optional<QStringList> separaColunas(QStringView linha, QChar separador);

/// Semicolon where the line has one outside of quotation marks, else comma.
QChar separadorDe(QStringView linha);

/// Reads a file of separated columns line by line; its first line tells the separator. It holds one line at a time,
/// however large the file is. Empty lines are passed over. Raises `Erro` for bytes that are no UTF-8, quotation marks
/// that don't match, a line that is too long, and a file that can't be read any further.
class LeitorCSV
{
public:
    LeitorCSV(QFileDevice &arquivo, Codificacao codificacao);

    /// The columns of the next line, or nothing at the end of the file.
    std::optional<QStringList> proxima();

    /// The number of the line read last, from 1.
    int linha() const { return linha_; }

    /// How much of the file has been read, in percent; 0 where its size is not known.
    int porcento() const;

private:
    std::optional<QString> leLinha();
    QString decodifica(const QByteArray &bytes) const;
    QStringList colunas(const QString &texto);

    QFileDevice &arquivo_;
    Codificacao codificacao_;
    qint64 tamanho_;
    QByteArray crua_; ///< the line as it is read; room for the longest, made for each anew, took most of the time
    qint64 lidos_ = 0;
    int linha_ = 0;
    QChar separador_;
};

} // namespace ceps
