#include "render/scene/Camera.h"

#include <cmath>

namespace korvane {

// The two matrices show the same picture. With a for 2 pi - a, c for 2 pi - c, b for b +- pi and
// -distance, sin a, sin c, sin b and cos b change their signs. Without roll (sin c = 0) that leaves
// the OpenGL matrix as the software one with the first and the third column negated, and so
//
//     x_gl = -x,   y_gl = y,   z_gl = -z.
//
// OpenGL projects to x_gl / -z_gl and y_gl / -z_gl, y up. In pixels from the top left corner, f
// being the focal length, the software view therefore has to draw at
//
//     cx - f x / z,   cy - f y / z.
//
// OpenGL counts faces as front faces whose corners run anticlockwise with y up. Seen with y down
// the product of two edges (x1 y2 - y1 x2, taken in the order of the corners) is negative for them:
// this is what the test against the negative back-face threshold asks for.
Matrix4 cameraMatrix(DrawApi api, const CameraAngles& angles, float distance) {
    float a = angles.pitch;
    float b = angles.yaw;
    float c = angles.roll;
    float tz = distance;
    if (api == DrawApi::OpenGL) {
        a = 2 * viewPi - a;
        b = b + viewPi <= 2 * viewPi ? b + viewPi : b - viewPi;
        c = 2 * viewPi - c;
        tz = -distance;
    }
    const double sa = std::sin(double{a});
    const double ca = std::cos(double{a});
    const double sb = std::sin(double{b});
    const double cb = std::cos(double{b});
    const double sc = std::sin(double{c});
    const double cc = std::cos(double{c});
    Matrix4 matrix;
    matrix[0] = static_cast<float>(cb * cc);
    matrix[1] = static_cast<float>(cc * sa * sb - ca * sc);
    matrix[2] = static_cast<float>(ca * cc * sb + sa * sc);
    matrix[4] = static_cast<float>(cb * sc);
    matrix[5] = static_cast<float>(ca * cc + sa * sb * sc);
    matrix[6] = static_cast<float>(ca * sb * sc - cc * sa);
    matrix[8] = static_cast<float>(-sb);
    matrix[9] = static_cast<float>(cb * sa);
    matrix[10] = static_cast<float>(ca * cb);
    matrix[14] = tz;
    return matrix;
}

} // namespace korvane
