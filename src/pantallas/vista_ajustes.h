// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the settings window shows beside the stored settings: the program's
// version and addresses, whether it holds full access to the home and how to
// grant it, and the choices of the low-space notice.

#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

class VistaAjustes : public QObject {
    Q_OBJECT
    QML_ELEMENT
    // The program's version, or "—" when it has none.
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QUrl sitio READ sitio CONSTANT)
    // A mail to the feedback address with the subject "Vorlano".
    Q_PROPERTY(QUrl comentarios READ comentarios CONSTANT)
    // Read again each time the application becomes active, so that a grant
    // made meanwhile shows.
    Q_PROPERTY(bool accesoTotal READ accesoTotal NOTIFY accesoTotalChanged)
    // Where the system grants it (a settings page), or else the command to run.
    Q_PROPERTY(QUrl paginaAcceso READ paginaAcceso CONSTANT)
    Q_PROPERTY(QString ordenAcceso READ ordenAcceso CONSTANT)
    // The notice's choices, {etiqueta, valor}, "Nunca" first.
    Q_PROPERTY(QVariantList opcionesAviso READ opcionesAviso CONSTANT)

public:
    explicit VistaAjustes(QObject* padre = nullptr);

    static QString version();
    static QUrl sitio();
    static QUrl comentarios();
    bool accesoTotal() const { return accesoTotal_; }
    QUrl paginaAcceso() const { return paginaAcceso_; }
    QString ordenAcceso() const { return ordenAcceso_; }
    static QVariantList opcionesAviso();

    // The position of a limit among the choices: "Nunca" for 0 or less, -1
    // for another value.
    Q_INVOKABLE static int indiceAviso(int gb);
    Q_INVOKABLE void revisarAcceso();

Q_SIGNALS:
    void accesoTotalChanged();

private:
    bool accesoTotal_ = false;
    QUrl paginaAcceso_;
    QString ordenAcceso_;
};
