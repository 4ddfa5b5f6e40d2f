#include "calls_arm64.h"

__asm__(R"(
    .pushsection .text
    .p2align 2
    .globl CallWithStack
    .hidden CallWithStack
    .type CallWithStack, %function
CallWithStack:
    stp x29, x30, [sp, #-16]!
    mov x29, sp
    mov x16, x0
    mov x17, x1
    add x9, x3, #15
    and x9, x9, #-16
    sub sp, sp, x9
    mov x10, sp
1:  cbz x3, 2f
    ldr x11, [x2], #8
    str x11, [x10], #8
    sub x3, x3, #8
    b 1b
2:  ldp x0, x1, [x17]
    ldp x2, x3, [x17, #16]
    ldp x4, x5, [x17, #32]
    ldp x6, x7, [x17, #48]
    blr x16
    mov sp, x29
    ldp x29, x30, [sp], #16
    ret
    .popsection
)");
