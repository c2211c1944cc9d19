// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/math/Operations.h>

#include <QList>
#include <QQuaternion>
#include <QVector3D>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

using finiteness::finiteOrIdentity;
using finiteness::isFinite;

// The five values of an alignment, from a record or from a surface's getters.
struct Chain
{
    explicit Chain(const SurfaceScanAlignment& alignment)
        : initial(alignment.initialTransform),
          freehand(alignment.freehandTransform),
          registration(alignment.registrationTransform),
          reference(alignment.referenceTransform),
          freehandAligned(alignment.freehandAligned)
    {}

    explicit Chain(const AlignableSurface& surface)
        : initial(surface.getInitialTransform()),
          freehand(surface.getFreehandTransform()),
          registration(surface.getRegistrationTransform()),
          reference(surface.getReferenceTransform()),
          freehandAligned(surface.isFreehandAligned())
    {}

    QMatrix4x4 freehandTotal(const QMatrix4x4& m) const
    {
        return m * reference.inverted() * freehand * initial;
    }

    QMatrix4x4 registrationTotal(const QMatrix4x4& m) const
    {
        // Intended: a scan that was never placed stays where the scanner had it, whatever M is;
        // hosts set a reference for such a scan too, so P does not count.
        if (initial.isIdentity() && freehand.isIdentity() && registration.isIdentity())
            return {};
        return m * registration * reference.inverted() * freehand * initial;
    }

    QMatrix4x4 total(const QMatrix4x4& m) const
    {
        return freehandAligned ? freehandTotal(m) : registrationTotal(m);
    }

    QMatrix4x4 initial;
    QMatrix4x4 freehand;
    QMatrix4x4 registration;
    QMatrix4x4 reference;
    bool freehandAligned;
};

// Returns false for a matrix that is not finite. The caller then leaves the flag unchanged too,
// since flag and record say where the mesh is.
// Intended: the vertices are not checked; hosts place scans by rigid matrices, which keep them
// finite.
bool move(AlignableSurface& surface, const QMatrix4x4& matrix)
{
    if (!isFinite(matrix))
        return false;
    if (Surface3DModel* model = surface.getSurfaceModel()) {
        const EditLocker locker(model);
        model->setObjectTransform(matrix);
        model->refresh();
    }
    return true;
}

// Computes the third coordinates of vectors rotated by a quaternion q, with the bits of
// QQuaternion::rotatedVector() except for the sign of zero. Qt multiplies q * (0, v) *
// conjugate(q), each product by its scheme of nine multiplications in place of sixteen; the code
// below has the same sums and products and computes those of q alone once. Vertices are processed
// in blocks of a fixed size, by coordinates, which compilers turn into vector code. The largest of
// many is the same in any order.
class RotatedHeights
{
public:
    explicit RotatedHeights(const QQuaternion& q)
        : wMinusY(q.scalar() - q.y()),
          wPlusY(q.scalar() + q.y()),
          zPlusX(q.z() + q.x()),
          zMinusX(q.z() - q.x()),
          zMinusY(q.z() - q.y()),
          xPlusW(q.x() + q.scalar()),
          wMinusX(q.scalar() - q.x()),
          zPlusY(q.z() + q.y()),
          wMinusZ(q.scalar() - q.z()),
          wPlusZ(q.scalar() + q.z()),
          minusXMinusY(-q.x() - q.y()),
          minusXPlusY(-q.x() + q.y()),
          wPlusX(q.scalar() + q.x())
    {}

    // Returns the lowest float if there is no vector.
    float highest(const QList<QVector3D>& vectors) const
    {
        Block highestOfLanes;
        highestOfLanes.fill(std::numeric_limits<float>::lowest());
        const qsizetype inBlocks = vectors.size() - vectors.size() % LANES;
        for (qsizetype first = 0; first < inBlocks; first += LANES)
            raise(highestOfLanes, vectors.constData() + first);

        float result = std::numeric_limits<float>::lowest();
        for (const float height : highestOfLanes)
            result = height > result ? height : result;
        for (qsizetype i = inBlocks; i < vectors.size(); ++i) {
            const float height = heightOf(vectors[i].x(), vectors[i].y(), vectors[i].z());
            result = height > result ? height : result;
        }
        return result;
    }

    float heightOf(float x, float y, float z) const
    {
        // q * (0, v)
        const float yy1 = wMinusY * z;
        const float zz1 = wPlusY * -z;
        const float ww1 = zPlusX * (x + y);
        const float xx1 = ww1 + yy1 + zz1;
        const float qq1 = 0.5F * (xx1 + zMinusX * (x - y));
        const float productW = qq1 - ww1 + zMinusY * (y - z);
        const float productX = qq1 - xx1 + xPlusW * x;
        const float productY = qq1 - yy1 + wMinusX * (y + z);
        const float productZ = qq1 - zz1 + zPlusY * -x;

        // the third coordinate of that * conjugate(q)
        const float yy2 = (productW - productY) * wMinusZ;
        const float zz2 = (productW + productY) * wPlusZ;
        const float ww2 = (productZ + productX) * minusXMinusY;
        const float xx2 = ww2 + yy2 + zz2;
        const float qq2 = 0.5F * (xx2 + (productZ - productX) * minusXPlusY);
        return qq2 - zz2 + (productZ + productY) * wPlusX;
    }

private:
    static constexpr int LANES = 64;
    using Block = std::array<float, LANES>;

    void raise(Block& highestOfLanes, const QVector3D* vectors) const
    {
        Block x, y, z;
        for (int lane = 0; lane < LANES; ++lane) {
            x[lane] = vectors[lane].x();
            y[lane] = vectors[lane].y();
            z[lane] = vectors[lane].z();
        }
        for (int lane = 0; lane < LANES; ++lane) {
            const float height = heightOf(x[lane], y[lane], z[lane]);
            highestOfLanes[lane] = height > highestOfLanes[lane] ? height : highestOfLanes[lane];
        }
    }

    float wMinusY, wPlusY, zPlusX, zMinusX, zMinusY, xPlusW, wMinusX, zPlusY;
    float wMinusZ, wPlusZ, minusXMinusY, minusXPlusY, wPlusX;
};

} // namespace

SurfaceScanTransformations::~SurfaceScanTransformations() = default;

QMatrix4x4
SurfaceScanTransformations::getTotalFreehandTransform(const SurfaceScanAlignment& alignment,
                                                      const QMatrix4x4& m)
{
    return finiteOrIdentity(Chain(alignment).freehandTotal(m));
}

QMatrix4x4 SurfaceScanTransformations::getTotalFreehandTransform(const AlignableSurface* surface,
                                                                 const QMatrix4x4& m)
{
    return surface ? finiteOrIdentity(Chain(*surface).freehandTotal(m)) : QMatrix4x4();
}

QMatrix4x4
SurfaceScanTransformations::getTotalRegistrationTransform(const SurfaceScanAlignment& alignment,
                                                          const QMatrix4x4& m)
{
    return finiteOrIdentity(Chain(alignment).registrationTotal(m));
}

QMatrix4x4
SurfaceScanTransformations::getTotalRegistrationTransform(const AlignableSurface* surface,
                                                          const QMatrix4x4& m)
{
    return surface ? finiteOrIdentity(Chain(*surface).registrationTotal(m)) : QMatrix4x4();
}

QMatrix4x4 SurfaceScanTransformations::getTotalTransform(const SurfaceScanAlignment& alignment,
                                                         const QMatrix4x4& m)
{
    return finiteOrIdentity(Chain(alignment).total(m));
}

QMatrix4x4 SurfaceScanTransformations::getTotalTransform(const AlignableSurface* surface,
                                                         const QMatrix4x4& m)
{
    return surface ? finiteOrIdentity(Chain(*surface).total(m)) : QMatrix4x4();
}

void SurfaceScanTransformations::applyTransform(AlignableSurface* surface, QMatrix4x4 matrix)
{
    if (surface)
        move(*surface, matrix);
}

void SurfaceScanTransformations::applyTotalFreehandTransform(AlignableSurface* surface,
                                                             const QMatrix4x4& m)
{
    if (!surface)
        return;
    if (move(*surface, Chain(*surface).freehandTotal(m)))
        surface->setFreehandAligned(true);
}

void SurfaceScanTransformations::applyTotalRegistratedTransform(AlignableSurface* surface,
                                                                const QMatrix4x4& m)
{
    if (!surface)
        return;
    if (move(*surface, Chain(*surface).registrationTotal(m)))
        surface->setFreehandAligned(false);
}

void SurfaceScanTransformations::removeTotalFreehandOrRegistrated(AlignableSurface* surface,
                                                                  const QMatrix4x4& m)
{
    if (!surface)
        return;
    if (move(*surface, Chain(*surface).total(m).inverted()))
        surface->setFreehandAligned(false);
}

void SurfaceScanTransformations::initialToFreehand(AlignableSurface* surface, const QMatrix4x4& m)
{
    if (!surface)
        return;
    const Chain chain(*surface);
    if (move(*surface, chain.freehandTotal(m) * chain.initial.inverted()))
        surface->setFreehandAligned(true);
}

void SurfaceScanTransformations::initialToRegistrated(AlignableSurface* surface,
                                                      const QMatrix4x4& m)
{
    if (!surface)
        return;
    const Chain chain(*surface);
    // Intended: the flag is unchanged; callers that show a registration before it is accepted rely
    // on it.
    move(*surface, chain.registrationTotal(m) * chain.initial.inverted());
}

void SurfaceScanTransformations::freehandToRegistration(AlignableSurface* surface,
                                                        const QMatrix4x4& m)
{
    if (!surface)
        return;
    const Chain chain(*surface);
    if (!chain.freehandAligned)
        return;
    if (move(*surface, chain.registrationTotal(m) * chain.freehandTotal(m).inverted()))
        surface->setFreehandAligned(false);
}

void SurfaceScanTransformations::registratedToFreehand(AlignableSurface* surface,
                                                       const QMatrix4x4& m)
{
    if (!surface)
        return;
    const Chain chain(*surface);
    if (chain.freehandAligned)
        return;
    if (move(*surface, chain.freehandTotal(m) * chain.registrationTotal(m).inverted()))
        surface->setFreehandAligned(true);
}

void SurfaceScanTransformations::freehandOrRegistratedToInitial(AlignableSurface* surface,
                                                                const QMatrix4x4& m)
{
    if (!surface)
        return;
    const Chain chain(*surface);
    const QMatrix4x4 toInitial = chain.initial * chain.total(m).inverted();
    if (!isFinite(toInitial))
        return;
    // Intended: the flag is cleared before the move; observers of the move rely on finding it
    // cleared. The total is the one from before.
    surface->setFreehandAligned(false);
    move(*surface, toInitial);
}

void SurfaceScanTransformations::setAlignment(AlignableSurface* surface,
                                              const SurfaceScanAlignment& alignment,
                                              const QMatrix4x4& m)
{
    if (!surface)
        return;
    // Copies: either argument may be the surface's own record or a part of it, which changes below.
    const SurfaceScanAlignment next = alignment;
    const QMatrix4x4 planning = m;
    // Both moves are checked before anything is changed: a mesh that made only one of them would
    // not be where its record says.
    // Intended: the total that is not in force is not checked; callers get the record back as they
    // stored it.
    if (!isFinite(Chain(*surface).total(planning).inverted()) ||
        !isFinite(Chain(next).total(planning)))
        return;
    // Intended: refreshed before anything else; hosts may leave a move pending in the model, which
    // must not be mixed into the new placement.
    if (Surface3DModel* model = surface->getSurfaceModel())
        model->refresh();
    removeTotalFreehandOrRegistrated(surface, planning);
    surface->setSurfaceScanAlignment(next);
    if (next.freehandAligned)
        applyTotalFreehandTransform(surface, planning);
    else
        applyTotalRegistratedTransform(surface, planning);
}

float SurfaceScanTransformations::computeInitialHeightOffset(const AlignableSurface* surface,
                                                             QVector3D direction, float margin)
{
    const Surface3DModel* model = surface ? surface->getSurfaceModel() : nullptr;
    if (!model)
        return 0.0F;
    const QQuaternion rotation = math::Operations::getRotationTo(
        QVector3D(0.0F, 0.0F, 1.0F), direction, QVector3D(1.0F, 0.0F, 0.0F));
    const float highest = RotatedHeights(rotation).highest(model->getMesh().getVertices());
    const float center = rotation.rotatedVector(model->getCenterOfMass()).z();
    return std::abs(highest - center) + margin;
}
