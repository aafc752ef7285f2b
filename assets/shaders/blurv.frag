#version 110
// A vertical Gaussian blur of the 256 x 64 "Speed up!" label, 13 texels wide.
// The weights sum to one, so the picture keeps its mean.
uniform sampler2D texture1;
varying vec2 uv;
varying vec4 colour;

const vec2 texelStep = vec2(0.0, 1.0 / 64.0);

void main()
{
    vec4 sum = vec4(0.0);
    float total = 0.0;
    for (int i = -6; i <= 6; i++) {
        float weight = exp(-float(i * i) / 12.5);
        sum += texture2D(texture1, uv + texelStep * float(i)) * weight;
        total += weight;
    }
    gl_FragColor = sum / total * colour;
}
