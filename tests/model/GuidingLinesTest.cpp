// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

// GuidingLine: path, upper direction, and its two kinds of observers.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

class LineRecorder : public patterns::Observer<GuidingLine, events::GuidingLineEvent>
{
public:
    std::vector<GuidingLine*> subjects;
    std::vector<events::GuidingLineEvent::Type> types;
    std::vector<GuidingLine*> destructions;

private:
    void changedEvent(GuidingLine* subject, events::GuidingLineEvent* event) override
    {
        subjects.push_back(subject);
        ASSERT_NE(event, nullptr);
        types.push_back(event->type);
    }
    void destroyed(GuidingLine* subject) override { destructions.push_back(subject); }
};

class ObjectRecorder : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    std::vector<DataObject*> subjects;
    std::vector<DataObject*> destructions;

private:
    void changedEvent(DataObject* subject) override { subjects.push_back(subject); }
    void destroyed(DataObject* subject) override { destructions.push_back(subject); }
};

class GuidingLineTest : public testing::Test
{
protected:
    GuidingLineTest()
    {
        line.attach(&ofLine);
        line.attach(&ofObject);
    }

    LineRecorder ofLine;
    ObjectRecorder ofObject;
    GuidingLine line;
};

const QList<QVector3D> kPath{{0.0F, 0.0F, 0.0F}, {1.0F, 2.0F, 3.0F}};

TEST(GuidingLineEvent, IsAChangeOfThePathByDefault)
{
    EXPECT_EQ(events::GuidingLineEvent().type, events::GuidingLineEvent::PathChanged);
}

TEST(GuidingLine, GivesItsOwningPointer)
{
    const auto owner = std::make_shared<GuidingLine>();
    EXPECT_EQ(owner->shared_from_this(), owner);
}

TEST(GuidingLine, StartsWithoutAPathAndUpIsZ)
{
    const GuidingLine line;
    EXPECT_TRUE(line.getOriginalPath().isEmpty());
    EXPECT_EQ(line.getUpperDirection(), QVector3D(0.0F, 0.0F, 1.0F));
}

TEST(GuidingLine, GivesThePathAndDirectionAsSet)
{
    GuidingLine line;
    line.setOriginalPath(kPath);
    line.setUpperDirection({0.0F, -2.0F, 0.0F});
    EXPECT_EQ(line.getOriginalPath(), kPath);
    EXPECT_EQ(line.getUpperDirection(), QVector3D(0.0F, -2.0F, 0.0F)) << "not normalized";
    line.setOriginalPath({});
    EXPECT_TRUE(line.getOriginalPath().isEmpty());
}

TEST_F(GuidingLineTest, NewPathNotifiesBothKindsOfObservers)
{
    line.setOriginalPath(kPath);
    EXPECT_EQ(ofObject.subjects, std::vector<DataObject*>{&line});
    EXPECT_EQ(ofLine.subjects, std::vector<GuidingLine*>{&line});
    EXPECT_EQ(ofLine.types, std::vector{events::GuidingLineEvent::PathChanged});
}

TEST_F(GuidingLineTest, NewDirectionNotifiesTheObserversOfDataObjects)
{
    line.setUpperDirection({0.0F, 1.0F, 0.0F});
    EXPECT_EQ(ofObject.subjects, std::vector<DataObject*>{&line});
}

TEST_F(GuidingLineTest, NotifyReachesTheObserversOfDataObjectsOnly)
{
    line.notify();
    EXPECT_EQ(ofObject.subjects.size(), 1U);
    EXPECT_EQ(ofLine.subjects.size(), 0U);
}

TEST_F(GuidingLineTest, NotifyGuidingLineObserversReachesTheObserversOfLinesOnly)
{
    line.notifyGuidingLineObservers();
    EXPECT_EQ(ofObject.subjects.size(), 0U);
    EXPECT_EQ(ofLine.subjects, std::vector<GuidingLine*>{&line});
    EXPECT_EQ(ofLine.types, std::vector{events::GuidingLineEvent::PathChanged});
}

TEST_F(GuidingLineTest, SuppressionHoldsForBothKindsOfObservers)
{
    line.setNotifyObservers(false);
    line.setOriginalPath(kPath);
    line.notifyGuidingLineObservers();
    line.notify();
    line.setNotifyObservers(true);
    EXPECT_EQ(ofObject.subjects.size(), 0U);
    EXPECT_EQ(ofLine.subjects.size(), 0U);
    line.setOriginalPath(kPath);
    EXPECT_EQ(ofObject.subjects.size(), 1U);
    EXPECT_EQ(ofLine.subjects.size(), 1U);
}

TEST_F(GuidingLineTest, BracketNotifiesTheObserversOfDataObjectsOnceWhenItCloses)
{
    {
        const EditLocker lock(&line);
        line.setOriginalPath(kPath);
        line.setUpperDirection({0.0F, 1.0F, 0.0F});
        EXPECT_EQ(ofObject.subjects.size(), 0U);
    }
    EXPECT_EQ(ofObject.subjects.size(), 1U);
}

TEST_F(GuidingLineTest, ObserversOfOneKindAreDetachedWithoutTheOthers)
{
    line.detach(&ofObject);
    EXPECT_EQ(ofObject.getNumObservables(), 0);
    EXPECT_EQ(ofLine.getNumObservables(), 1);
    line.detach(&ofLine);
    EXPECT_EQ(ofLine.getNumObservables(), 0);
    line.setOriginalPath(kPath);
    EXPECT_EQ(ofObject.subjects.size(), 0U);
    EXPECT_EQ(ofLine.subjects.size(), 0U);
}

TEST(GuidingLine, DestructionNotifiesBothKindsOfObserversOnce)
{
    LineRecorder ofLine;
    ObjectRecorder ofObject;
    auto line = std::make_shared<GuidingLine>();
    GuidingLine* const address = line.get();
    DataObject* const objectAddress = address;
    line->attach(&ofLine);
    line->attach(&ofObject);
    line.reset();
    EXPECT_EQ(ofLine.destructions, std::vector<GuidingLine*>{address});
    EXPECT_EQ(ofObject.destructions, std::vector<DataObject*>{objectAddress});
    EXPECT_EQ(ofLine.getNumObservables(), 0);
    EXPECT_EQ(ofObject.getNumObservables(), 0);
}

TEST(GuidingLine, OutlivesItsObservers)
{
    GuidingLine line;
    {
        LineRecorder ofLine;
        ObjectRecorder ofObject;
        line.attach(&ofLine);
        line.attach(&ofObject);
    }
    line.setOriginalPath(kPath); // would access freed memory if a link were still there
    EXPECT_EQ(line.DataObject::getNumObservers(), 0);
    EXPECT_EQ(line.GuidingLine::LineObservable::getNumObservers(), 0);
}

} // namespace
