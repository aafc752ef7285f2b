#version 110
// The second layer of a wide bolt: a smooth glow whose core burns white.
void main()
{
    float core = gl_Color.a;
    vec3 rgb = mix(gl_Color.rgb, vec3(1.0), core * core * 0.8);
    gl_FragColor = vec4(rgb, clamp(core * 1.3, 0.0, 1.0));
}
