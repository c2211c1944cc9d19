// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ToothGenerationTools.h>

#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr auto kStatus = static_cast<dataobject::Tooth::Status>(hostvalues::kPresentTooth);
constexpr auto kCategory = static_cast<dataobject::Tooth::Category>(hostvalues::kPermanentTooth);

std::shared_ptr<dataobject::Mouth> mouthOf(const Diagnosis* diagnosis)
{
    const std::shared_ptr<Anatomy> anatomy = diagnosis ? diagnosis->getPatientAnatomy() : nullptr;
    return anatomy ? anatomy->getMouth() : nullptr;
}

// Returns the sorted types of teeth or labels; duplicates are kept.
template <typename Objects>
std::vector<ToothChart::Tooth> sortedTypesOf(const Objects& objects)
{
    std::vector<ToothChart::Tooth> types;
    types.reserve(objects.size());
    for (const auto& object : objects) {
        if (object)
            types.push_back(object->getToothType());
    }
    std::ranges::sort(types);
    return types;
}

} // namespace

std::vector<std::shared_ptr<dataobject::Tooth>> ToothGenerationTools::createMissingTeeth(
    const Diagnosis* diagnosis, const QList<std::shared_ptr<ToothAnnotation3D>>& annotations)
{
    const std::shared_ptr<dataobject::Mouth> mouth = mouthOf(diagnosis);
    if (!mouth)
        return {};
    const std::vector<ToothChart::Tooth> existing = sortedTypesOf(mouth->getAllTeethUnsorted());
    const std::vector<ToothChart::Tooth> labeled = sortedTypesOf(annotations);
    std::vector<ToothChart::Tooth> missing;
    std::ranges::set_difference(labeled, existing, std::back_inserter(missing));
    std::vector<std::shared_ptr<dataobject::Tooth>> created;
    created.reserve(missing.size());
    for (const ToothChart::Tooth tooth : missing)
        created.push_back(std::make_shared<dataobject::Tooth>(tooth, kStatus, kCategory));
    return created;
}

void ToothGenerationTools::linkTeethWithToothAnnotations(
    Diagnosis* diagnosis, const QList<std::shared_ptr<ToothAnnotation3D>>& annotations)
{
    const std::shared_ptr<dataobject::Mouth> mouth = mouthOf(diagnosis);
    if (!mouth)
        return;
    const QSet<std::shared_ptr<dataobject::Tooth>> teeth = mouth->getAllTeethUnsorted();
    for (const auto& tooth : teeth) {
        if (!tooth)
            continue;
        const auto label = std::ranges::find_if(annotations, [&tooth](const auto& annotation) {
            return annotation && annotation->getToothType() == tooth->getToothType();
        });
        if (label != annotations.end())
            (*label)->setTooth(tooth);
    }
}
