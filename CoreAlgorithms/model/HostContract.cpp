// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/HostContract.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/math/Plane.h>
#include <CoreAlgorithms/model/math/QRay3D.h>

// The model that the library is built against, bundled or the application's own. What is missing stands below
// the failed line, as "the required expression ... is invalid".
static_assert(hostcontract::PlanarResliceFamily<PlanarReslice>,
              "PlanarReslice lacks an operation that the library calls");
static_assert(hostcontract::CephResliceFamily<CephReslice>,
              "CephReslice lacks an operation that the library calls");
static_assert(hostcontract::RayValue<primitives::QRay3D>,
              "primitives::QRay3D lacks a constructor that the library calls");
static_assert(hostcontract::PlaneValue<primitives::Plane, primitives::QRay3D>,
              "primitives::Plane lacks an operation that the library calls");
