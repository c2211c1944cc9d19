// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QString>

#include <memory>
#include <vector>

namespace geometry {

/// Represents a solid by its measures, from which the clinic's renderer makes triangles.
struct ShapeNode
{
    explicit ShapeNode(const QString& label) : name(label) {}

    const QMatrix4x4& getTransform() const { return placement; }
    void setTransform(const QMatrix4x4& matrix) { placement = matrix; }
    void addChild(ShapeNode* child) { parts.emplace_back(child); }

    QString name;
    QMatrix4x4 placement;
    float radius = 0.0F;
    float length = 0.0F;
    std::vector<std::unique_ptr<ShapeNode>> parts;
};

class ShapeFactory
{
public:
    ShapeNode* generateCylinder(float radius, float length, bool /*openTop*/,
                                bool /*openBottom*/) const
    {
        return generate("cylinder", radius, length);
    }
    ShapeNode* generateCone(float radius, float length, bool /*openBase*/) const
    {
        return generate("cone", radius, length);
    }

private:
    static ShapeNode* generate(const char* kind, float radius, float length)
    {
        auto node = std::make_unique<ShapeNode>(kind);
        node->radius = radius;
        node->length = length;
        return node.release();
    }
};

} // namespace geometry
