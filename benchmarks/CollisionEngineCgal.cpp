// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <benchmarks/CollisionEngines.h>

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Rigid_triangle_mesh_collision_detection.h>
#include <CGAL/Surface_mesh.h>

#include <list>

namespace benchmarks {

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Surface = CGAL::Surface_mesh<Kernel::Point_3>;

Kernel::Aff_transformation_3 affine(const QMatrix4x4& m)
{
    const auto at = [&m](int row, int column) { return double(m(row, column)); };
    return {at(0, 0), at(0, 1), at(0, 2), at(0, 3), at(1, 0), at(1, 1),
            at(1, 2), at(1, 3), at(2, 0), at(2, 1), at(2, 2), at(2, 3)};
}

Surface surface(const geometry::Mesh& mesh)
{
    Surface result;
    for (const QVector3D& v : mesh.getVertices())
        result.add_vertex({double(v.x()), double(v.y()), double(v.z())});
    const QList<int>& indices = mesh.getIndices();
    const auto vertex = [&indices](qsizetype i) {
        return Surface::Vertex_index(std::uint32_t(indices[i]));
    };
    for (qsizetype i = 0; i + 3 < indices.size(); i += 4)
        result.add_face(vertex(i), vertex(i + 1), vertex(i + 2));
    return result;
}

// Keeps a tree of axis-aligned boxes for each object, built once, with exact predicates. A move
// changes a matrix.
class Cgal : public PairwiseEngine<std::size_t>
{
public:
    using PairwiseEngine::PairwiseEngine;

protected:
    void buildImplant(dataobject::Implant3D& implant, std::size_t& envelope,
                      std::size_t& zone) override
    {
        envelope = add(safetyZoneMesh(implant, 0.0F), implant.getObjectTransform());
        zone = add(safetyZoneMesh(implant, 3.0F), implant.getObjectTransform());
    }

    void moveImplant(dataobject::Implant3D& implant, std::size_t& envelope,
                     std::size_t& zone) override
    {
        objects.set_transformation(envelope, affine(implant.getObjectTransform()));
        objects.set_transformation(zone, affine(implant.getObjectTransform()));
    }

    void buildNerve(const dataobject::Nerve& nerve, std::size_t& body) override
    {
        body = add(nerve.getMesh(), nerve.getObjectTransform());
    }

    void buildPin(dataobject::AnchorPin3D& pin, std::size_t& body) override
    {
        body = add(pinMesh(pin), pin.getObjectTransform());
    }

    bool intersect(std::size_t& a, std::size_t& b) override
    {
        return !objects.get_all_intersections(a, std::array{b}).empty();
    }

private:
    std::size_t add(const geometry::Mesh& mesh, const QMatrix4x4& placement)
    {
        const std::size_t id =
            objects.add_mesh(surfaces.emplace_back(surface(mesh)),
                             CGAL::parameters::apply_per_connected_component(false));
        objects.set_transformation(id, affine(placement));
        return id;
    }

    std::list<Surface> surfaces; // the trees refer to them
    CGAL::Rigid_triangle_mesh_collision_detection<Surface> objects;
};

} // namespace

std::unique_ptr<Engine> makeCgal(const Plan& plan)
{
    return std::make_unique<Cgal>(plan);
}

} // namespace benchmarks
