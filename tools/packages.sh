# Debian packages by purpose, for the scripts to source.
library_packages=(g++ cmake ninja-build qt6-base-dev libeigen3-dev)
planner_packages=(libniftiio-dev libnifti2-dev libznz-dev zlib1g-dev libgdcm-dev libcli11-dev fonts-dejavu-core)
test_packages=(libgtest-dev libgmock-dev libcgal-dev pkgconf)
gate_packages=(clang clang-format clang-tidy git python3)
benchmark_packages=(libbenchmark-dev libfcl-dev libcgal-dev libembree-dev libnanoflann-dev python3-numpy)
