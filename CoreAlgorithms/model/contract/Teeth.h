// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes the tooth chart, the mouth and the labels of teeth.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QSet>
#include <QVector3D>

#include <concepts>
#include <memory>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes ToothChart::Tooth: a number that is a key among other numbers.
template <typename Tooth>
concept ToothNumber = NumberedValue<Tooth> && std::convertible_to<Tooth, int>;

/// Describes ToothChart. (tooth - 1) % 16 runs along either arch. The arch type of value 0 is the
/// upper arch.
template <typename ToothChart>
concept ToothChartFamily = ToothNumber<typename ToothChart::Tooth> &&
    NumberedValue<typename ToothChart::ArchType> &&
    requires(typename ToothChart::Tooth tooth, typename ToothChart::ArchType arch,
             const QList<typename ToothChart::Tooth>& teeth)
{
    { ToothChart::getArchTypeOfTooth(tooth) } -> Exactly<typename ToothChart::ArchType>;
    { ToothChart::getOppositeTooth(tooth) } -> Exactly<typename ToothChart::Tooth>;
    { ToothChart::getOppositeJaw(arch) } -> Exactly<typename ToothChart::ArchType>;
    { ToothChart::createContinuousRegion(tooth, tooth) }
        -> Exactly<QList<typename ToothChart::Tooth>>;
    { ToothChart::filterTeethForArchType(teeth, arch) }
        -> Exactly<QList<typename ToothChart::Tooth>>;
};

/// Describes ToothChart and its Tooth as far as the boxes at teeth need them.
template <typename Chart, typename Tooth>
concept ToothKinds = requires(Tooth tooth)
{
    { Chart::isMolar(tooth) } -> std::convertible_to<bool>;
    { Chart::isPremolar(tooth) } -> std::convertible_to<bool>;
    { Chart::isUpperTooth(tooth) } -> std::convertible_to<bool>;
};

/// Describes dataobject::Mouth and its teeth. A tooth is created from its type, the status of value
/// 0 and the category of value 1.
template <typename Mouth, typename Tooth, typename ToothChart>
concept MouthFamily = NumberedValue<typename Tooth::Status> &&
    NumberedValue<typename Tooth::Category> &&
    std::constructible_from<Tooth, typename ToothChart::Tooth, typename Tooth::Status,
                            typename Tooth::Category> &&
    requires(const Mouth& mouth, const Tooth& tooth, typename ToothChart::Tooth toothType)
{
    { tooth.getToothType() } -> Exactly<typename ToothChart::Tooth>;
    { mouth.hasTooth(toothType) } -> std::convertible_to<bool>;
    { mouth.getToothForToothType(toothType) } -> SharedPointerTo<Tooth>;
    { mouth.getAllTeethUnsorted() } -> Exactly<QSet<std::shared_ptr<Tooth>>>;
};

/// Describes Diagnosis and the anatomy through which it leads to the mouth.
template <typename Diagnosis, typename Anatomy, typename Mouth>
concept DiagnosisFamily = requires(const Diagnosis& diagnosis, const Anatomy& anatomy)
{
    { diagnosis.getPatientAnatomy() } -> SharedPointerTo<Anatomy>;
    { anatomy.getMouth() } -> SharedPointerTo<Mouth>;
};

/// Describes Anatomy by its models from before surgery, which may be null.
template <typename Anatomy, typename Surface>
concept OriginalModelsFamily = requires(const Anatomy& anatomy)
{
    { anatomy.getOriginalCranium() } -> Exactly<std::shared_ptr<Surface>>;
    { anatomy.getOriginalMandible() } -> Exactly<std::shared_ptr<Surface>>;
};

/// Describes ToothAnnotation3D. getToothType() is known for a label without a tooth too. The
/// creation type of value 0 means that the application created the label.
template <typename Annotation, typename Tooth, typename ToothChart, typename CreationType>
concept ToothAnnotationFamily = std::default_initializable<Annotation> &&
    requires(Annotation& label, const std::shared_ptr<Tooth>& tooth, const QVector3D& vector)
{
    { label.getToothType() } -> Exactly<typename ToothChart::Tooth>;
    { label.getCreationType() } -> Exactly<CreationType>;
    label.setTooth(tooth);
    label.setPosition(vector);
    label.setDirection(vector);
};

// clang-format on

} // namespace hostcontract
