// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <benchmarks/CollisionEngines.h>

#include <tests/support/PlainOverlap.h>

#include <embree3/rtcore.h>

#include <algorithm>

namespace benchmarks {

namespace {

using Triangle = std::array<QVector3D, 3>;

// Keeps a scene with one placed surface. Embree treats triangles as boxes and leaves the exact test
// to its caller.
struct Body
{
    Body() = default;
    Body(const Body&) = delete;
    Body& operator=(const Body&) = delete;
    Body(Body&&) = delete;
    Body& operator=(Body&&) = delete;
    ~Body()
    {
        rtcReleaseGeometry(geometry);
        rtcReleaseScene(scene);
    }

    geometry::Mesh mesh; // in the object's own frame
    std::vector<Triangle> triangles;
    RTCGeometry geometry = nullptr;
    RTCScene scene = nullptr;
};

void boundsOf(const RTCBoundsFunctionArguments* arguments)
{
    const Triangle& t =
        (*static_cast<const std::vector<Triangle>*>(arguments->geometryUserPtr))[arguments->primID];
    RTCBounds& bounds = *arguments->bounds_o;
    bounds.lower_x = std::min({t[0].x(), t[1].x(), t[2].x()});
    bounds.lower_y = std::min({t[0].y(), t[1].y(), t[2].y()});
    bounds.lower_z = std::min({t[0].z(), t[1].z(), t[2].z()});
    bounds.upper_x = std::max({t[0].x(), t[1].x(), t[2].x()});
    bounds.upper_y = std::max({t[0].y(), t[1].y(), t[2].y()});
    bounds.upper_z = std::max({t[0].z(), t[1].z(), t[2].z()});
}

struct Question
{
    const Body& a;
    const Body& b;
    bool intersect = false;
};

void testPairs(void* user, RTCCollision* pairs, unsigned count)
{
    Question& question = *static_cast<Question*>(user);
    for (unsigned i = 0; i < count && !question.intersect; ++i) {
        const Triangle& v = question.a.triangles[pairs[i].primID0];
        const Triangle& u = question.b.triangles[pairs[i].primID1];
        question.intersect = test::plain::trianglesIntersect(v[0], v[1], v[2], u[0], u[1], u[2]);
    }
}

class Embree : public PairwiseEngine<std::unique_ptr<Body>>
{
public:
    explicit Embree(const Plan& tested)
        : PairwiseEngine(tested), device(rtcNewDevice("threads=1,set_affinity=0"))
    {}
    Embree(const Embree&) = delete;
    Embree& operator=(const Embree&) = delete;
    ~Embree() override { rtcReleaseDevice(device); }

protected:
    using BodyPointer = std::unique_ptr<Body>;

    void buildImplant(dataobject::Implant3D& implant, BodyPointer& envelope,
                      BodyPointer& zone) override
    {
        build(safetyZoneMesh(implant, 0.0F), implant.getObjectTransform(), envelope);
        build(safetyZoneMesh(implant, 3.0F), implant.getObjectTransform(), zone);
    }

    void moveImplant(dataobject::Implant3D& implant, BodyPointer& envelope,
                     BodyPointer& zone) override
    {
        place(*envelope, implant.getObjectTransform());
        place(*zone, implant.getObjectTransform());
    }

    void buildNerve(const dataobject::Nerve& nerve, BodyPointer& body) override
    {
        build(nerve.getMesh(), nerve.getObjectTransform(), body);
    }

    void buildPin(dataobject::AnchorPin3D& pin, BodyPointer& body) override
    {
        build(pinMesh(pin), pin.getObjectTransform(), body);
    }

    bool intersect(BodyPointer& a, BodyPointer& b) override
    {
        Question question{*a, *b};
        rtcCollide(a->scene, b->scene, &testPairs, &question);
        return question.intersect;
    }

private:
    void build(const geometry::Mesh& mesh, const QMatrix4x4& placement, BodyPointer& body)
    {
        body = std::make_unique<Body>();
        body->mesh = mesh;
        body->triangles.resize(std::size_t(mesh.getNumIndices() / 4));
        body->geometry = rtcNewGeometry(device, RTC_GEOMETRY_TYPE_USER);
        rtcSetGeometryUserPrimitiveCount(body->geometry, unsigned(body->triangles.size()));
        rtcSetGeometryUserData(body->geometry, &body->triangles);
        rtcSetGeometryBoundsFunction(body->geometry, &boundsOf, nullptr);
        body->scene = rtcNewScene(device);
        rtcSetSceneFlags(body->scene, RTC_SCENE_FLAG_DYNAMIC);
        rtcSetSceneBuildQuality(body->scene, RTC_BUILD_QUALITY_LOW);
        rtcAttachGeometry(body->scene, body->geometry);
        place(*body, placement);
    }

    static void place(Body& body, const QMatrix4x4& placement)
    {
        QList<QVector3D> vertices = body.mesh.getVertices();
        for (QVector3D& vertex : vertices)
            vertex = placement.map(vertex);
        const QList<int>& indices = body.mesh.getIndices();
        for (std::size_t t = 0; t < body.triangles.size(); ++t) {
            for (std::size_t k = 0; k < 3; ++k)
                body.triangles[t][k] = vertices[indices[qsizetype(4 * t + k)]];
        }
        rtcCommitGeometry(body.geometry);
        rtcCommitScene(body.scene);
    }

    RTCDevice device;
};

} // namespace

std::unique_ptr<Engine> makeEmbree(const Plan& plan)
{
    return std::make_unique<Embree>(plan);
}

} // namespace benchmarks
