#version 110
// The finished "Speed up!" label has no alpha: its brightness becomes the
// alpha, so the black around the sign turns transparent and the glow fades
// out softly over the field.
uniform sampler2D texture1;
varying vec2 uv;
varying vec4 colour;

void main()
{
    vec3 label = texture2D(texture1, uv).rgb;
    float cover = max(max(label.r, label.g), label.b);
    vec3 rgb = label / max(cover, 0.001);
    gl_FragColor = vec4(rgb, cover) * colour;
}
