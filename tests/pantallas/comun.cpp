// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/comun.h"

#include "estado/preferencias.h"
#include "estado/trabajo.h"

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QSet>
#include <QTest>

#include <cstdlib>
#include <filesystem>

namespace pantallas {

VentanaPrueba::VentanaPrueba(std::optional<bool> bienvenidaVista,
                             const std::function<void(apoyo::CasaPrueba&)>& antes)
    // Before the first use of any of the program's singletons.
    : home_(std::make_unique<apoyo::Variable>("VORLANO_HOME", casa.raiz().string()))
{
    if (antes)
        antes(casa);
    // As the program's start registers them.
    Preferencias::shared().registrarDefectos();
    if (bienvenidaVista)
        Preferencias::shared().ponerBienvenidaVista(*bienvenidaVista);
    app_ = std::make_unique<VorlanoApp>(casa.entorno());
    app_->abrirVentanaPrincipal();
    EXPECT_NE(ventana(), nullptr);
    asentar();
}

namespace {

// Every object named `nombre` at and below `raices`, through both trees:
// delegates of views and repeaters hang from their visual parent only,
// popups from the window's overlay.
std::vector<QObject*> conNombre(std::vector<QObject*> pendientes, const std::string& nombre, bool soloUno)
{
    const QString buscado = QString::fromStdString(nombre);
    std::vector<QObject*> r;
    QSet<QObject*> vistos;
    while (!pendientes.empty() && !(soloUno && !r.empty())) {
        QObject* o = pendientes.back();
        pendientes.pop_back();
        if (o == nullptr || vistos.contains(o))
            continue;
        vistos.insert(o);
        if (o->objectName() == buscado)
            r.push_back(o);
        for (QObject* h : o->children())
            pendientes.push_back(h);
        if (auto* item = qobject_cast<QQuickItem*>(o))
            for (QQuickItem* h : item->childItems())
                pendientes.push_back(h);
    }
    return r;
}

} // namespace

QObject* VentanaPrueba::buscar(const std::string& nombre) const
{
    QQuickWindow* ajustes = app_->ajustes();
    for (QQuickWindow* w : {ajustes && ajustes->isVisible() ? ajustes : nullptr, app_->ventana()})
        if (w != nullptr)
            if (const auto r = conNombre({w, w->contentItem()}, nombre, true); !r.empty())
                return r.front();
    return nullptr;
}

QQuickItem* VentanaPrueba::buscar(const std::string& dentro, const std::string& nombre) const
{
    const auto r = todos(dentro, nombre);
    return r.empty() ? nullptr : r.front();
}

std::vector<QQuickItem*> VentanaPrueba::todos(const std::string& dentro, const std::string& nombre) const
{
    std::vector<QQuickItem*> r;
    if (QObject* o = buscar(dentro))
        for (QObject* x : conNombre({o}, nombre, false))
            if (auto* item = qobject_cast<QQuickItem*>(x))
                r.push_back(item);
    return r;
}

QVariant VentanaPrueba::leer(const std::string& nombre, const char* propiedad) const
{
    QObject* o = buscar(nombre);
    return o != nullptr ? o->property(propiedad) : QVariant();
}

std::string VentanaPrueba::textoEn(const std::string& dentro, const std::string& nombre) const
{
    const QQuickItem* o = buscar(dentro, nombre);
    return o != nullptr ? o->property("text").toString().toStdString() : std::string();
}

bool VentanaPrueba::visible(const std::string& nombre) const
{
    QObject* o = buscar(nombre);
    // A popup is no item: its own flag says it is up.
    if (auto* item = qobject_cast<QQuickItem*>(o))
        return item->isVisible() && item->window() != nullptr;
    return o != nullptr && o->property("visible").toBool();
}

void VentanaPrueba::pulsar(QQuickItem* item, bool doble)
{
    ASSERT_TRUE(item != nullptr && item->window() != nullptr);
    const QPoint centro = item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    if (doble)
        QTest::mouseDClick(item->window(), Qt::LeftButton, {}, centro);
    else
        QTest::mouseClick(item->window(), Qt::LeftButton, {}, centro);
    asentar(doble ? 150 : 50);
}

void VentanaPrueba::pulsar(const std::string& nombre, bool doble)
{
    auto* item = qobject_cast<QQuickItem*>(buscar(nombre));
    ASSERT_NE(item, nullptr) << nombre;
    pulsar(item, doble);
}

void VentanaPrueba::analizar()
{
    QSignalSpy fin(&estado(), &Estado::analisisTerminado);
    estado().analizar();
    ASSERT_TRUE(esperar(fin));
    asentar();
}

void VentanaPrueba::asentar(int ms)
{
    QDeadlineTimer limite(ms);
    while (!limite.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

TrabajoRetenido::TrabajoRetenido()
{
    QThreadPool* grupo = grupoDeTrabajo();
    ocupados_ = grupo->maxThreadCount();
    for (int i = 0; i < ocupados_; ++i)
        grupo->start([paso = paso_] { paso->acquire(); });
}

void TrabajoRetenido::soltar()
{
    paso_->release(std::exchange(ocupados_, 0));
}

GestorArchivos::GestorArchivos()
    : conexion_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("gestor-archivos")))
{
    activo_ = conexion_.isConnected() &&
              conexion_.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), this,
                                       QDBusConnection::ExportAllSlots) &&
              conexion_.registerService(QStringLiteral("org.freedesktop.FileManager1"));
}

GestorArchivos::~GestorArchivos()
{
    conexion_.unregisterService(QStringLiteral("org.freedesktop.FileManager1"));
    conexion_.unregisterObject(QStringLiteral("/org/freedesktop/FileManager1"));
    QDBusConnection::disconnectFromBus(QStringLiteral("gestor-archivos"));
}

void GestorArchivos::ShowItems(const QStringList& uris, const QString&)
{
    mostrados_.push_back(uris);
}

void capturar(QQuickWindow* ventana, const std::string& nombre)
{
    const char* destino = std::getenv("VORLANO_CAPTURAS");
    if (destino == nullptr || *destino == '\0')
        return;
    ASSERT_NE(ventana, nullptr);
    const std::filesystem::path carpeta = destino;
    std::filesystem::create_directories(carpeta);
    const QPalette clara = QGuiApplication::palette();
    // A dark palette as a desktop's dark theme gives it.
    QPalette oscura(QColor(0x35, 0x38, 0x3e), QColor(0x1e, 0x20, 0x24));
    oscura.setColor(QPalette::WindowText, QColor(0xee, 0xee, 0xee));
    oscura.setColor(QPalette::Text, QColor(0xee, 0xee, 0xee));
    for (const auto& [esquema, paleta] : {std::pair{"claro", clara}, std::pair{"oscuro", oscura}}) {
        QGuiApplication::setPalette(paleta);
        // Colour changes and fades come to rest.
        QDeadlineTimer limite(400);
        while (!limite.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        const QImage imagen = ventana->grabWindow();
        const auto archivo = carpeta / (nombre + "-" + esquema + ".png");
        EXPECT_TRUE(imagen.save(QString::fromStdString(archivo.string()))) << archivo;
        // A window that failed to load its content is one flat colour.
        QSet<QRgb> colores;
        for (int y = 0; y < imagen.height() && colores.size() <= 16; y += 7)
            for (int x = 0; x < imagen.width(); x += 7)
                colores.insert(imagen.pixel(x, y));
        EXPECT_GT(colores.size(), 16) << archivo;
    }
    QGuiApplication::setPalette(clara);
}

} // namespace pantallas
