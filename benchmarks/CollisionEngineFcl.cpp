// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <benchmarks/CollisionEngines.h>

#include <fcl/geometry/bvh/BVH_model.h>
#include <fcl/narrowphase/collision.h>

namespace benchmarks {

namespace {

struct Body
{
    std::unique_ptr<fcl::BVHModel<fcl::OBBRSSf>> model; // in the object's own frame
    fcl::Transform3f placement = fcl::Transform3f::Identity();
};

fcl::Transform3f isometry(const QMatrix4x4& matrix)
{
    fcl::Transform3f result = fcl::Transform3f::Identity();
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            result.matrix()(row, column) = matrix(row, column);
    }
    return result;
}

void build(const geometry::Mesh& mesh, const QMatrix4x4& placement, Body& body)
{
    std::vector<fcl::Vector3f> points;
    for (const QVector3D& vertex : mesh.getVertices())
        points.emplace_back(vertex.x(), vertex.y(), vertex.z());
    std::vector<fcl::Triangle> triangles;
    const QList<int>& indices = mesh.getIndices();
    for (qsizetype i = 0; i + 3 < indices.size(); i += 4)
        triangles.emplace_back(indices[i], indices[i + 1], indices[i + 2]);
    body.model = std::make_unique<fcl::BVHModel<fcl::OBBRSSf>>();
    body.model->beginModel(int(triangles.size()), int(points.size()));
    body.model->addSubModel(points, triangles);
    body.model->endModel();
    body.placement = isometry(placement);
}

// Keeps a tree of oriented boxes for each object, built once. A move changes a matrix.
class Fcl : public PairwiseEngine<Body>
{
public:
    using PairwiseEngine::PairwiseEngine;

protected:
    void buildImplant(dataobject::Implant3D& implant, Body& envelope, Body& zone) override
    {
        build(safetyZoneMesh(implant, 0.0F), implant.getObjectTransform(), envelope);
        build(safetyZoneMesh(implant, 3.0F), implant.getObjectTransform(), zone);
    }

    void moveImplant(dataobject::Implant3D& implant, Body& envelope, Body& zone) override
    {
        envelope.placement = zone.placement = isometry(implant.getObjectTransform());
    }

    void buildNerve(const dataobject::Nerve& nerve, Body& body) override
    {
        build(nerve.getMesh(), nerve.getObjectTransform(), body);
    }

    void buildPin(dataobject::AnchorPin3D& pin, Body& body) override
    {
        build(pinMesh(pin), pin.getObjectTransform(), body);
    }

    bool intersect(Body& a, Body& b) override
    {
        const fcl::CollisionRequestf request; // one contact is enough
        fcl::CollisionResultf result;
        return fcl::collide(a.model.get(), a.placement, b.model.get(), b.placement, request,
                            result) > 0;
    }
};

} // namespace

std::unique_ptr<Engine> makeFcl(const Plan& plan)
{
    return std::make_unique<Fcl>(plan);
}

} // namespace benchmarks
