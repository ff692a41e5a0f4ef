#include "tests/studio_raytrace/RibPainter.h"

#include <QDir>
#include <QMatrix4x4>
#include <QVector2D>

#include <cmath>
#include <limits>

namespace StudioRaytraceTest {
namespace {

struct Corner {
    QVector3D point;  ///< seen by the eye: x right, y up, z away
    QVector2D place;
    QVector3D colour{1.0F, 1.0F, 1.0F};
};

template <typename Vector>
Vector VectorAt(const std::vector<float>& numbers, std::size_t index)
{
    Vector vector;
    constexpr std::size_t kSize = sizeof(Vector) / sizeof(float);
    for (std::size_t i = 0; i < kSize; ++i) {
        vector[static_cast<int>(i)] = numbers.at(kSize * index + i);
    }
    return vector;
}

class Painter {
public:
    Painter(const RibFile& file, QString folder) : m_folder(std::move(folder))
    {
        for (const RibRequest& request : file.requests) {
            Take(request);
        }
    }

    QImage picture;

private:
    void Take(const RibRequest& request)
    {
        const std::vector<float> numbers = request.Numbers();
        if (request.name == "Format") {
            picture = QImage(static_cast<int>(numbers[0]), static_cast<int>(numbers[1]),
                             QImage::Format_RGB32);
            picture.fill(Qt::black);
            m_depths.assign(static_cast<std::size_t>(picture.width() * picture.height()),
                            std::numeric_limits<float>::max());
        } else if (request.name == "Projection") {
            const RibArgument* fov = request.Parameter("fov");
            m_half = fov ? std::tan(fov->numbers.at(0) * 0.00872664626F) : 0.0F;
        } else if (request.name == "Scale") {
            m_transform.scale(VectorAt<QVector3D>(numbers, 0));
        } else if (request.name == "Translate") {
            m_transform.translate(VectorAt<QVector3D>(numbers, 0));
        } else if (request.name == "ConcatTransform") {
            m_transform *= QMatrix4x4(numbers.data()).transposed();
        } else if (request.name == "AttributeBegin") {
            m_saved = m_transform;
        } else if (request.name == "AttributeEnd") {
            m_transform = m_saved;
        } else if (request.name == "Color") {
            m_colour = VectorAt<QVector3D>(numbers, 0);
        } else if (request.name == "Surface") {
            const RibArgument* image = request.Parameter("texturename");
            m_image =
                image
                    ? QImage(QDir(m_folder).filePath(QString::fromStdString(image->strings.at(0))))
                    : QImage();
            m_ambient = request.Parameter("Ka")->numbers.at(0);
        } else if (request.name == "Polygon") {
            m_places.clear();
            m_colours = request.Parameter("Cs")->numbers;
            Paint({0.0F, 1.0F, 2.0F, 3.0F}, 0, 4, request.Parameter("P")->numbers);
        } else if (request.name == "PointsPolygons") {
            m_colours.clear();
            m_places = request.Parameter("st")->numbers;
            std::size_t first = 0;
            for (const float count : request.arguments[0].numbers) {
                Paint(request.arguments[1].numbers, first, static_cast<std::size_t>(count),
                      request.Parameter("P")->numbers);
                first += static_cast<std::size_t>(count);
            }
        }
    }

    Corner CornerAt(const std::vector<float>& corners, std::size_t index,
                    const std::vector<float>& points)
    {
        const auto vertex = static_cast<std::size_t>(corners.at(index));
        Corner corner{m_transform.map(VectorAt<QVector3D>(points, vertex)), {}, m_colour};
        if (!m_places.empty()) {
            corner.place = VectorAt<QVector2D>(m_places, index);
        }
        if (!m_colours.empty()) {
            corner.colour = VectorAt<QVector3D>(m_colours, vertex);
        }
        return corner;
    }

    void Paint(const std::vector<float>& corners, std::size_t first, std::size_t count,
               const std::vector<float>& points)
    {
        for (std::size_t i = 2; i < count; ++i) {
            PaintTriangle({CornerAt(corners, first, points),
                           CornerAt(corners, first + i - 1, points),
                           CornerAt(corners, first + i, points)});
        }
    }

    /// The line of sight through a pixel's middle; the eye is at 0 or, far away, in the pixel.
    [[nodiscard]] std::pair<QVector3D, QVector3D> Sight(int x, int y) const
    {
        const auto smaller = static_cast<float>(std::min(picture.width(), picture.height()));
        const QVector3D at(static_cast<float>(2 * x + 1 - picture.width()) / smaller,
                           static_cast<float>(picture.height() - 2 * y - 1) / smaller, 0.0F);
        return m_half > 0.0F ? std::pair(QVector3D(), m_half * at + QVector3D(0.0F, 0.0F, 1.0F))
                             : std::pair(at, QVector3D(0.0F, 0.0F, 1.0F));
    }

    void PaintTriangle(const std::array<Corner, 3>& corners)
    {
        const QVector3D ab = corners[1].point - corners[0].point;
        const QVector3D ac = corners[2].point - corners[0].point;
        const auto onScreen = [&](const QVector3D& point) {
            const float depth = m_half > 0.0F ? m_half * point.z() : 1.0F;
            const auto smaller = static_cast<float>(std::min(picture.width(), picture.height()));
            return QPointF(
                static_cast<double>(point.x() / depth * smaller) / 2.0 + picture.width() / 2.0,
                picture.height() / 2.0 - static_cast<double>(point.y() / depth * smaller) / 2.0);
        };
        QRectF box(onScreen(corners[0].point), QSizeF(0.1, 0.1));
        box |= QRectF(onScreen(corners[1].point), QSizeF(0.1, 0.1));
        box |= QRectF(onScreen(corners[2].point), QSizeF(0.1, 0.1));
        const QRect pixels = box.toAlignedRect() & picture.rect();
        for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
            for (int x = pixels.left(); x <= pixels.right(); ++x) {
                const auto [eye, sight] = Sight(x, y);
                const QVector3D p = QVector3D::crossProduct(sight, ac);
                const float area = QVector3D::dotProduct(ab, p);
                const QVector3D from = eye - corners[0].point;
                const QVector3D q = QVector3D::crossProduct(from, ab);
                const float b = QVector3D::dotProduct(from, p) / area;
                const float c = QVector3D::dotProduct(sight, q) / area;
                const float depth = QVector3D::dotProduct(ac, q) / area;
                constexpr float kSlack = -1.0e-4F;
                if (b >= kSlack && c >= kSlack && b + c <= 1.0F - kSlack && depth > 0.0F) {
                    PaintPixel(x, y, depth, corners, {1.0F - b - c, b, c});
                }
            }
        }
    }

    void PaintPixel(int x, int y, float depth, const std::array<Corner, 3>& corners,
                    const QVector3D& shares)
    {
        float& nearest = m_depths[static_cast<std::size_t>(y * picture.width() + x)];
        if (depth >= nearest) {
            return;
        }
        nearest = depth;
        QVector2D place;
        QVector3D light;
        for (int i = 0; i < 3; ++i) {
            place += shares[i] * corners[static_cast<std::size_t>(i)].place;
            light += shares[i] * corners[static_cast<std::size_t>(i)].colour;
        }
        light *= m_ambient * TexelAt(place);
        const auto encoded = [](float linear) {
            const float cut = std::min(std::max(linear, 0.0F), 1.0F);
            return static_cast<int>(std::lround(255.0F * std::pow(cut, 1.0F / 2.2F)));
        };
        picture.setPixel(x, y, qRgb(encoded(light.x()), encoded(light.y()), encoded(light.z())));
    }

    [[nodiscard]] QVector3D TexelAt(const QVector2D& place) const
    {
        if (m_image.isNull()) {
            return {1.0F, 1.0F, 1.0F};
        }
        const int x = static_cast<int>(std::floor(place.x() * static_cast<float>(m_image.width())));
        const int y =
            static_cast<int>(std::floor(place.y() * static_cast<float>(m_image.height())));
        if (!m_image.valid(x, y)) {
            return {};
        }
        const QRgb texel = m_image.pixel(x, y);
        return QVector3D(static_cast<float>(qRed(texel)), static_cast<float>(qGreen(texel)),
                         static_cast<float>(qBlue(texel))) /
               255.0F;
    }

    QString m_folder;
    float m_half = 0.0F;  ///< of the smaller side at distance 1; 0 for parallel lines of sight
    QMatrix4x4 m_transform;
    QMatrix4x4 m_saved;
    QVector3D m_colour{1.0F, 1.0F, 1.0F};
    float m_ambient = 1.0F;
    QImage m_image;
    std::vector<float> m_places;
    std::vector<float> m_colours;
    std::vector<float> m_depths;
};

}  // namespace

QImage PaintRib(const RibFile& file, const QString& folder)
{
    return Painter(file, folder).picture;
}

}  // namespace StudioRaytraceTest
