// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/comun.h"

#include "estado/comun.h"
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

VentanaPrueba::~VentanaPrueba()
{
    app_.reset();
}

namespace {

// Every object named `nombre` at and below `raiz`, through both trees:
// delegates of views and repeaters hang from their visual parent only,
// popups from the window's overlay.
std::vector<QObject*> conNombre(const std::vector<QObject*>& raices, const QString& nombre, bool soloUno)
{
    std::vector<QObject*> r, pendientes = raices;
    QSet<QObject*> vistos;
    while (!pendientes.empty() && !(soloUno && !r.empty())) {
        QObject* o = pendientes.back();
        pendientes.pop_back();
        if (o == nullptr || vistos.contains(o))
            continue;
        vistos.insert(o);
        if (o->objectName() == nombre)
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

QObject* VentanaPrueba::buscar(const QString& nombre) const
{
    QQuickWindow* w = app_->ventana();
    if (w == nullptr)
        return nullptr;
    const auto r = conNombre({w, w->contentItem()}, nombre, true);
    return r.empty() ? nullptr : r.front();
}

QQuickItem* VentanaPrueba::buscar(const char* dentro, const char* nombre) const
{
    QObject* o = buscar(dentro);
    if (o == nullptr)
        return nullptr;
    const auto r = conNombre({o}, QString::fromUtf8(nombre), true);
    return r.empty() ? nullptr : qobject_cast<QQuickItem*>(r.front());
}

std::vector<QQuickItem*> VentanaPrueba::todos(const char* dentro, const char* nombre) const
{
    std::vector<QQuickItem*> r;
    if (QObject* o = buscar(dentro))
        for (QObject* x : conNombre({o}, QString::fromUtf8(nombre), false))
            if (auto* item = qobject_cast<QQuickItem*>(x))
                r.push_back(item);
    return r;
}

QVariant VentanaPrueba::leer(const char* nombre, const char* propiedad) const
{
    QObject* o = buscar(nombre);
    return o != nullptr ? o->property(propiedad) : QVariant();
}

bool VentanaPrueba::visible(const QString& nombre) const
{
    QObject* o = buscar(nombre);
    // A popup is no item: its own flag says it is up.
    if (auto* item = qobject_cast<QQuickItem*>(o))
        return item->isVisible() && item->window() != nullptr;
    return o != nullptr && o->property("visible").toBool();
}

void VentanaPrueba::pulsar(QQuickItem* item)
{
    ASSERT_NE(item, nullptr);
    const QPointF centro = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(ventana(), Qt::LeftButton, {}, centro.toPoint());
    asentar(50);
}

void VentanaPrueba::pulsar(const QString& nombre)
{
    auto* item = qobject_cast<QQuickItem*>(buscar(nombre));
    ASSERT_NE(item, nullptr) << nombre.toStdString();
    pulsar(item);
}

void VentanaPrueba::dobleClic(const std::string& nombre)
{
    auto* item = qobject_cast<QQuickItem*>(buscar(QString::fromStdString(nombre)));
    ASSERT_NE(item, nullptr) << nombre;
    const QPointF centro = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseDClick(ventana(), Qt::LeftButton, {}, centro.toPoint());
    asentar();
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
        grupo->start([this] { paso_.acquire(); });
}

void TrabajoRetenido::soltar()
{
    paso_.release(std::exchange(ocupados_, 0));
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

bool hasta(const std::function<bool()>& cond)
{
    QDeadlineTimer limite(120'000);
    while (!cond() && !limite.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    return cond();
}

bool hayCapturas()
{
    const char* carpeta = std::getenv("VORLANO_CAPTURAS");
    return carpeta != nullptr && *carpeta != '\0';
}

void capturar(QQuickWindow* ventana, const std::string& nombre)
{
    if (!hayCapturas())
        return;
    ASSERT_NE(ventana, nullptr);
    const std::filesystem::path carpeta = std::getenv("VORLANO_CAPTURAS");
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
