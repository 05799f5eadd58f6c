#include "render/scene/Camera.h"

#include <cmath>

namespace korvane {

// The two matrices show the same picture. Replacing a by 2 pi - a, c by 2 pi - c, b by b +- pi and
// distance by -distance changes the signs of sin a, sin c, sin b and cos b. Without roll (sin c =
// 0) the OpenGL matrix is then the software one with the first and the third column negated, and so
//
//     x_gl = -x,   y_gl = y,   z_gl = -z.
//
// OpenGL projects to x_gl / -z_gl and y_gl / -z_gl, y up. So the software view, in pixels from the
// top left corner and with the focal length f, has to draw at
//
//     cx - f x / z,   cy - f y / z.
//
// In OpenGL, front faces have anticlockwise corners with y up. With y down, the product of two of
// their edges (x1 y2 - y1 x2, in the order of the corners) is negative: hence the test against the
// negative back-face threshold.
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
