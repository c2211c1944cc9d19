// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/fundamentals/CoreObject.h>

// CoreObject: identity without copies, and the identifier of a class against those of its bases.

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

static_assert(!std::is_copy_constructible_v<CoreObject> && !std::is_copy_assignable_v<CoreObject>);
static_assert(!std::is_move_constructible_v<CoreObject> && !std::is_move_assignable_v<CoreObject>);
static_assert(std::has_virtual_destructor_v<CoreObject>);

// An application's own class.
class Crown : public CoreObject
{
public:
    static QString getClassTypeId() { return QStringLiteral("Crown"); }
    bool isOfType(const QString& classTypeId) const override
    {
        return classTypeId == getClassTypeId() || CoreObject::isOfType(classTypeId);
    }
};

TEST(CoreObject, IsOfItsOwnType)
{
    EXPECT_TRUE(CoreObject().isOfType(CoreObject::getClassTypeId()));
}

TEST(CoreObject, HasAnIdentifier)
{
    EXPECT_FALSE(CoreObject::getClassTypeId().isEmpty());
}

TEST(CoreObject, IsOfNoOtherType)
{
    const CoreObject object;
    EXPECT_FALSE(object.isOfType(Crown::getClassTypeId()));
    EXPECT_FALSE(object.isOfType(QStringLiteral("no such class")));
}

TEST(CoreObject, IsOfNoTypeWithoutAName)
{
    const CoreObject object;
    EXPECT_FALSE(object.isOfType(QString()));
    EXPECT_FALSE(object.isOfType(QStringLiteral("")));
}

TEST(CoreObject, DerivedObjectIsOfBothTypes)
{
    const std::unique_ptr<CoreObject> crown = std::make_unique<Crown>();
    EXPECT_TRUE(crown->isOfType(Crown::getClassTypeId()));
    EXPECT_TRUE(crown->isOfType(CoreObject::getClassTypeId()));
    EXPECT_FALSE(crown->isOfType(QStringLiteral("Bridge")));
}

} // namespace
