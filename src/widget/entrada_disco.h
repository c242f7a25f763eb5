// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the desktop widget draws: the disk's figures at one moment, the rules
// and texts that follow from them, and the sizes it comes in. The entry is a
// value type of QML, so each view takes it whole as `entrada` and binds to
// the texts computed here.

#include "nucleo/formato.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <string>
#include <string_view>

struct EntradaDisco {
    Q_GADGET
    QML_VALUE_TYPE(entradaDisco)
    Q_PROPERTY(qint64 libre MEMBER libre)
    Q_PROPERTY(qint64 total MEMBER total)
    Q_PROPERTY(double usado READ usado)
    Q_PROPERTY(bool poco READ poco)
    Q_PROPERTY(QString lineaEstado READ lineaEstadoQml)
    Q_PROPERTY(QString deTotal READ deTotalQml)
    Q_PROPERTY(QString hora READ horaQml)
    Q_PROPERTY(QString libreTexto READ libreTextoQml)

public:
    Fecha date;
    qint64 libre = 0;
    qint64 total = 0;

    // (total - libre) / total; 0 for a total below 1.
    double usado() const;
    // At least 0.9 in use.
    bool poco() const;

    // Now, and the volume of the user's real home, test mode or not: the
    // widget shows the disk the user sees.
    static EntradaDisco actual();
    // A fixed sample for pictures: 46 GB free of 245 GB, dated at first use.
    static const EntradaDisco& ejemplo();

    // "Queda poco espacio" when poco, else "{n} % usado · de {total}".
    std::string lineaEstado() const;
    // "de {total}" in whole gigabytes.
    std::string deTotal() const;
    // The clock time of date in the user's format.
    std::string hora() const;

    bool operator==(const EntradaDisco&) const = default;

private:
    QString lineaEstadoQml() const;
    QString deTotalQml() const;
    QString horaQml() const;
    QString libreTextoQml() const;
};

// The sizes the widget comes in; a name the program doesn't know is chico.
enum class Familia { chico, mediano, grande };
inline constexpr Familia todasLasFamilias[] = {Familia::chico, Familia::mediano, Familia::grande};
Familia familiaDe(std::string_view nombre);
std::string_view nombre(Familia f);

// Width and height in points.
struct Puntos {
    int ancho;
    int alto;
};
Puntos tamano(Familia f);
