#pragma once

#include "stage/stage_fields.h"
#include "stage/stage_surfaces.h"

namespace quillora::stage {

/// Media and camera change places: the older way of giving the camera the large area. At once, with no
/// movement. What fails is skipped; from fields that are still empty the surfaces get no size at all.
class Rotation {
  public:
    struct Ports {
        StageFields& fields;
        StageSurfaces& surfaces;
    };
    /// What the ports refer to must outlive this object.
    explicit Rotation(const Ports& ports) : m_ports(ports) {}

    void RotatePPT();
    void RotatePPTCAM();
    void RotatePPTDRAW();
    void RotatePPTWHITEBOARD();

  private:
    void exchange();
    void placeSlide(const RotateRectangle& place);

    Ports m_ports;
};

} // namespace quillora::stage
